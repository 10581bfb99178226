<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en_GB">
<context>
    <name>NightOximetry</name>
    <message>
        <source>Night oximetry</source>
        <translation>夜間オキシメトリー</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>機器</translation>
    </message>
    <message>
        <source>Nights</source>
        <translation>夜数</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>体重</translation>
    </message>
    <message>
        <source>Oxygen therapy</source>
        <translation>酸素療法</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>マスク</translation>
    </message>
    <message>
        <source>Sleep diary</source>
        <translation>睡眠日誌</translation>
    </message>
</context>
</TS>
