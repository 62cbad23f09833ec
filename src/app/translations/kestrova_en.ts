<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AreaControl</name>
    <message numerus="yes">
        <source>Area: %1 of %n clips</source>
        <translation>
            <numerusform>Area: %1 of %n clip</numerusform>
            <numerusform>Area: %1 of %n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipListExport</name>
    <message numerus="yes">
        <source>%n clips listed in %1</source>
        <translation>
            <numerusform>%n clip listed in %1</numerusform>
            <numerusform>%n clips listed in %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1; %n clips are left out, since their recordings cannot be named or are not known</source>
        <translation>
            <numerusform>%1; %n clip is left out, since its recording cannot be named or is not known</numerusform>
            <numerusform>%1; %n clips are left out, since their recordings cannot be named or are not known</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MotionStripWidget</name>
    <message numerus="yes">
        <source>%1: %2 long, strongest motion %3, %n clips</source>
        <translation>
            <numerusform>%1: %2 long, strongest motion %3, %n clip</numerusform>
            <numerusform>%1: %2 long, strongest motion %3, %n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SearchNotice</name>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n recording</numerusform>
            <numerusform>%n recordings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n clip</numerusform>
            <numerusform>%n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SessionOffer</name>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n recording</numerusform>
            <numerusform>%n recordings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n clip</numerusform>
            <numerusform>%n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ShownBar</name>
    <message numerus="yes">
        <source>%1 of %n clips are listed</source>
        <translation>
            <numerusform>%1 of %n clip is listed</numerusform>
            <numerusform>%1 of %n clips are listed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UseReport</name>
    <message numerus="yes">
        <source>The clips of %n recordings are replaced</source>
        <translation>
            <numerusform>The clips of %n recording are replaced</numerusform>
            <numerusform>The clips of %n recordings are replaced</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, those of %n are not; the last one: %2</source>
        <translation>
            <numerusform>%1, those of %n are not: %2</numerusform>
            <numerusform>%1, those of %n are not; the last one: %2</numerusform>
        </translation>
    </message>
</context>
</TS>
