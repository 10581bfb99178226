<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en_GB">
<context>
    <name>Ruvenka</name>
    <message>
        <source>Spirometry</source>
        <translation>スパイロメトリー</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>身長</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>体重</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>体位</translation>
    </message>
    <message>
        <source>Smoking history</source>
        <translation>喫煙歴</translation>
    </message>
    <message>
        <source>Pack years</source>
        <translation>パックイヤー</translation>
    </message>
    <message>
        <source>Medication</source>
        <translation>服薬</translation>
    </message>
    <message>
        <source>Symptoms</source>
        <translation>症状</translation>
    </message>
    <message>
        <source>Reference values</source>
        <translation>基準値</translation>
    </message>
    <message>
        <source>Quality grade</source>
        <translation>品質等級</translation>
    </message>
</context>
</TS>
