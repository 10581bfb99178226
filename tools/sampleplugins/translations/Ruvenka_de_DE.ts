<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_GB">
<context>
    <name>Ruvenka</name>
    <message>
        <source>Spirometry</source>
        <translation>Spirometrie</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Körperhaltung</translation>
    </message>
    <message>
        <source>Smoking history</source>
        <translation>Raucheranamnese</translation>
    </message>
    <message>
        <source>Pack years</source>
        <translation>Packungsjahre</translation>
    </message>
    <message>
        <source>Medication</source>
        <translation>Medikation</translation>
    </message>
    <message>
        <source>Symptoms</source>
        <translation>Beschwerden</translation>
    </message>
    <message>
        <source>Reference values</source>
        <translation>Referenzwerte</translation>
    </message>
    <message>
        <source>Quality grade</source>
        <translation>Qualitätsstufe</translation>
    </message>
</context>
</TS>
