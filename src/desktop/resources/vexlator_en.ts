<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>vexlator</name>
    <message numerus="yes">
        <source>%n file(s) failed</source>
        <translation>
            <numerusform>%n file failed</numerusform>
            <numerusform>%n files failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s) without a position</source>
        <translation>
            <numerusform>%n feature without a position</numerusform>
            <numerusform>%n features without a position</numerusform>
        </translation>
    </message>
</context>
</TS>
