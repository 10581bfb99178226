<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_GB">
<context>
    <name>NightOximetry</name>
    <message>
        <source>Night oximetry</source>
        <translation>Nächtliche Oximetrie</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Nights</source>
        <translation>Nächte</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
    <message>
        <source>Oxygen therapy</source>
        <translation>Sauerstofftherapie</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>Maske</translation>
    </message>
    <message>
        <source>Sleep diary</source>
        <translation>Schlaftagebuch</translation>
    </message>
</context>
</TS>
