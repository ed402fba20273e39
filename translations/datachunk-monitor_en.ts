<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>BusLines</name>
    <message numerus="yes">
        <source>There are %n bus lines already.</source>
        <translation>
            <numerusform>There is %n bus line already.</numerusform>
            <numerusform>There are %n bus lines already.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message numerus="yes">
        <source>%L1 messages</source>
        <translation>
            <numerusform>%L1 message</numerusform>
            <numerusform>%L1 messages</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>There are %n more.</source>
        <translation>
            <numerusform>There is %n more.</numerusform>
            <numerusform>There are %n more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportedTrace</name>
    <message numerus="yes">
        <source>%L1 lines could not be read as frames.</source>
        <translation>
            <numerusform>%L1 line could not be read as a frame.</numerusform>
            <numerusform>%L1 lines could not be read as frames.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 frames may not be as the file means them.</source>
        <translation>
            <numerusform>%L1 frame may not be as the file means it.</numerusform>
            <numerusform>%L1 frames may not be as the file means them.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Items</name>
    <message numerus="yes">
        <source>%L1 messages are no longer there.</source>
        <translation>
            <numerusform>%L1 message is no longer there.</numerusform>
            <numerusform>%L1 messages are no longer there.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 lines of %2 could not be read as frames.</source>
        <translation>
            <numerusform>%L1 line of %2 could not be read as a frame.</numerusform>
            <numerusform>%L1 lines of %2 could not be read as frames.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>JobRows</name>
    <message numerus="yes">
        <source>%n more wait</source>
        <translation>
            <numerusform>%n more waits</numerusform>
            <numerusform>%n more wait</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LeftRecordings</name>
    <message numerus="yes">
        <source>%n recordings were not closed, the last one of %1.</source>
        <translation>
            <numerusform>%n recording was not closed, the last one of %1.</numerusform>
            <numerusform>%n recordings were not closed, the last one of %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages were recovered.</source>
        <translation>
            <numerusform>%L1 message was recovered.</numerusform>
            <numerusform>%L1 messages were recovered.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LineModel</name>
    <message numerus="yes">
        <source>%L1 frames were no messages and are not recorded.</source>
        <translation>
            <numerusform>%L1 frame was no message and is not recorded.</numerusform>
            <numerusform>%L1 frames were no messages and are not recorded.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OverviewStrip</name>
    <message numerus="yes">
        <source>%n error frame(s)</source>
        <translation>
            <numerusform>%n error frame</numerusform>
            <numerusform>%n error frames</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlaceLine</name>
    <message numerus="yes">
        <source>%L1 messages, following the end</source>
        <translation>
            <numerusform>%L1 message, following the end</numerusform>
            <numerusform>%L1 messages, following the end</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages</source>
        <translation>
            <numerusform>%L1 message</numerusform>
            <numerusform>%L1 messages</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Recording</name>
    <message numerus="yes">
        <source>The recording has used up its budget of %n MiB: from now on its oldest messages are deleted.</source>
        <translation>
            <numerusform>The recording has used up its budget of %n MiB: from now on its oldest messages are deleted.</numerusform>
            <numerusform>The recording has used up its budget of %n MiB: from now on its oldest messages are deleted.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordingKeeper</name>
    <message numerus="yes">
        <source>It has %L1 messages. Discarded, they are gone for good.</source>
        <translation>
            <numerusform>It has %L1 message. Discarded, it is gone for good.</numerusform>
            <numerusform>It has %L1 messages. Discarded, they are gone for good.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordingStatus</name>
    <message numerus="yes">
        <source>The budget has taken the %n oldest chunk files of those stored.</source>
        <translation>
            <numerusform>The budget has taken %n chunk file, the oldest of those stored.</numerusform>
            <numerusform>The budget has taken the %n oldest chunk files of those stored.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SourceView</name>
    <message numerus="yes">
        <source>%L1 lines</source>
        <translation>
            <numerusform>%L1 line</numerusform>
            <numerusform>%L1 lines</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TraceOpener</name>
    <message numerus="yes">
        <source>%n traces more were not opened.</source>
        <translation>
            <numerusform>%n trace more was not opened.</numerusform>
            <numerusform>%n traces more were not opened.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TraceView</name>
    <message numerus="yes">
        <source>%n message(s) copied.</source>
        <translation>
            <numerusform>%n message copied.</numerusform>
            <numerusform>%n messages copied.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n could not be written this way.</source>
        <translation>
            <numerusform>%n could not be written this way.</numerusform>
            <numerusform>%n could not be written this way.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n selected messages were copied.</source>
        <translation>
            <numerusform>Only the first selected message was copied (%n).</numerusform>
            <numerusform>Only the first %n selected messages were copied.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WritingDesk</name>
    <message numerus="yes">
        <source>%n files were written into %1.</source>
        <translation>
            <numerusform>%n file was written into %1.</numerusform>
            <numerusform>%n files were written into %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n chunks packed.</source>
        <translation>
            <numerusform>%1: %n chunk packed.</numerusform>
            <numerusform>%1: %n chunks packed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chunks were unpacked into %1.</source>
        <translation>
            <numerusform>%n chunk was unpacked into %1.</numerusform>
            <numerusform>%n chunks were unpacked into %1.</numerusform>
        </translation>
    </message>
</context>
</TS>
