<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AlertSheet</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Connections go to %1.</source>
        <translation>Verbindungen gehen an %1.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Change address</source>
        <translation>Adresse ändern</translation>
    </message>
</context>
<context>
    <name>BandChoice</name>
    <message>
        <source>Band</source>
        <translation>Band</translation>
    </message>
</context>
<context>
    <name>BandHandle</name>
    <message>
        <source>%1 band %2, %3</source>
        <translation>%1 Band %2, %3</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
</context>
<context>
    <name>BusyArc</name>
    <message>
        <source>Waiting for the unit</source>
        <translation>Warten auf die Einheit</translation>
    </message>
</context>
<context>
    <name>EqualiserView</name>
    <message>
        <source>Equaliser response, approximate</source>
        <translation>Verlauf des Equalizers, ungefähr</translation>
    </message>
    <message>
        <source>approximate</source>
        <translation>ungefähr</translation>
    </message>
</context>
<context>
    <name>FirstRunPage</name>
    <message>
        <source>Lumbra Remote</source>
        <translation>Lumbra Remote</translation>
    </message>
    <message>
        <source>Where is your unit?</source>
        <translation>Wo ist Ihre Einheit?</translation>
    </message>
    <message>
        <source>Type its address, as your installer or your router shows it.</source>
        <translation>Geben Sie ihre Adresse ein, wie Ihr Installateur oder Ihr Router sie anzeigt.</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Unit number</source>
        <translation>Nummer der Einheit</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Try the demo</source>
        <translation>Demo ausprobieren</translation>
    </message>
</context>
<context>
    <name>GroupScreen</name>
    <message>
        <source>What was last set for the group. Its zones may play at other levels.</source>
        <translation>Was zuletzt für die Gruppe eingestellt wurde. Ihre Zonen können anders spielen.</translation>
    </message>
</context>
<context>
    <name>Header</name>
    <message>
        <source>Unit at %1, %2</source>
        <translation>Einheit unter %1, %2</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Neu verbinden</translation>
    </message>
    <message>
        <source>Unit and address</source>
        <translation>Einheit und Adresse</translation>
    </message>
</context>
<context>
    <name>LevelSlider</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Lumbra Remote</source>
        <translation>Lumbra Remote</translation>
    </message>
</context>
<context>
    <name>Navigation</name>
    <message>
        <source>Screens</source>
        <translation>Bereiche</translation>
    </message>
</context>
<context>
    <name>NumberField</name>
    <message>
        <source>−15 to 15 dB</source>
        <translation>−15 bis 15 dB</translation>
    </message>
    <message>
        <source>20 Hz to 20 kHz</source>
        <translation>20 Hz bis 20 kHz</translation>
    </message>
</context>
<context>
    <name>OutputScreen</name>
    <message>
        <source>Part of the screen</source>
        <translation>Teil der Ansicht</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>Equaliser</source>
        <translation>Equalizer</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Invite another phone</source>
        <translation>Ein weiteres Telefon einladen</translation>
    </message>
    <message>
        <source>Type the code that the program shows where it runs, or on a paired phone under Settings.</source>
        <translation>Geben Sie den Code ein, den das Programm dort zeigt, wo es läuft, oder ein gekoppeltes Telefon unter Einstellungen.</translation>
    </message>
</context>
<context>
    <name>PickList</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>SceneButton</name>
    <message>
        <source>Sent</source>
        <translation>Gesendet</translation>
    </message>
    <message>
        <source>%1 %2, sent</source>
        <translation>%1 %2, gesendet</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>SceneScreen</name>
    <message>
        <source>Recall %1</source>
        <translation>%1 abrufen</translation>
    </message>
</context>
<context>
    <name>Segment</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>Sentence</name>
    <message>
        <source>input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>loudness</source>
        <translation>Loudness</translation>
    </message>
    <message>
        <source>power</source>
        <translation>Ein/Aus</translation>
    </message>
    <message>
        <source>bass</source>
        <translation>Bass</translation>
    </message>
    <message>
        <source>treble</source>
        <translation>Höhen</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>%1 is the name of an item (a zone, an output ...), %2 a caption of its controls: &quot;Kitchen volume&quot;</extracomment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Lumbra Remote %1</source>
        <translation>Lumbra Remote %1</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
</context>
<context>
    <name>StoreDialog</name>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Replace what is stored as &quot;%1&quot;? This can&apos;t be undone.</source>
        <translation>Den Inhalt von „%1“ ersetzen? Das lässt sich nicht rückgängig machen.</translation>
    </message>
</context>
<context>
    <name>SwitchBase</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
</context>
<context>
    <name>System</name>
    <message>
        <source>Zones</source>
        <translation>Zonen</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgänge</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Overrides</source>
        <translation>Vorränge</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>Zone</source>
        <translation>Zone</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Override</source>
        <translation>Vorrang</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Loudness</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Ein/Aus</translation>
    </message>
    <message>
        <source>Bass</source>
        <translation>Bass</translation>
    </message>
    <message>
        <source>Treble</source>
        <translation>Höhen</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Bypass</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>High-pass</source>
        <translation>Hochpass</translation>
    </message>
    <message>
        <source>High shelf</source>
        <translation>Höhen-Shelf</translation>
    </message>
    <message>
        <source>Low-pass</source>
        <translation>Tiefpass</translation>
    </message>
    <message>
        <source>Low shelf</source>
        <translation>Tiefen-Shelf</translation>
    </message>
    <message>
        <source>Parametric</source>
        <translation>Parametrisch</translation>
    </message>
    <message>
        <source>Recall</source>
        <translation>Abrufen</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Unit number</source>
        <translation>Nummer der Einheit</translation>
    </message>
    <message>
        <source>State queries</source>
        <translation>Zustandsabfragen</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Serielle Schnittstelle</translation>
    </message>
    <message>
        <source>Start tab</source>
        <translation>Startseite</translation>
    </message>
    <message>
        <source>Advanced mode</source>
        <translation>Erweiterter Modus</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Failed to connect to IP address %1.</source>
        <translation>Keine Verbindung zur IP-Adresse %1.</translation>
    </message>
    <message>
        <source>%1 percent</source>
        <translation>%1 Prozent</translation>
    </message>
    <message>
        <source>%1 decibels</source>
        <translation>%1 Dezibel</translation>
    </message>
    <message>
        <source>%1 kilohertz</source>
        <translation>%1 Kilohertz</translation>
    </message>
    <message>
        <source>%1 hertz</source>
        <translation>%1 Hertz</translation>
    </message>
    <message>
        <source>Simulated unit</source>
        <translation>Simulierte Einheit</translation>
    </message>
    <message>
        <source>An address has four numbers, as in 192.168.1.50.</source>
        <translation>Eine Adresse hat vier Zahlen, wie 192.168.1.50.</translation>
    </message>
    <message>
        <source>Each number of an address is 255 at most.</source>
        <translation>Jede Zahl einer Adresse ist höchstens 255.</translation>
    </message>
    <message>
        <source>Without an address there is no unit to reach.</source>
        <translation>Ohne Adresse ist keine Einheit zu erreichen.</translation>
    </message>
    <message>
        <source>An address has no blanks.</source>
        <translation>Eine Adresse hat keine Leerzeichen.</translation>
    </message>
    <message>
        <source>A port can&apos;t be given; the unit is always reached on port 23.</source>
        <translation>Ein Port kann nicht angegeben werden; die Einheit ist immer über Port 23 zu erreichen.</translation>
    </message>
    <message>
        <source>This is neither an address, as 192.168.1.50, nor a host&apos;s name.</source>
        <translation>Das ist weder eine Adresse, wie 192.168.1.50, noch ein Rechnername.</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Verbindet</translation>
    </message>
    <message>
        <source>Waiting for the unit</source>
        <translation>Wartet auf die Einheit</translation>
    </message>
    <message>
        <source>Unit %1 does not answer</source>
        <translation>Einheit %1 antwortet nicht</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Zone %1</source>
        <translation>Zone %1</translation>
    </message>
    <message>
        <source>Output %1</source>
        <translation>Ausgang %1</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Szene %1</translation>
    </message>
    <message>
        <source>Source %1</source>
        <translation>Quelle %1</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>%1, asked for %2</source>
        <extracomment>%1 is what the unit has reported, %2 what it has been asked for since</extracomment>
        <translation>%1, verlangt: %2</translation>
    </message>
    <message>
        <source>%1%</source>
        <extracomment>With the space before the sign that the language has: a narrow no-break space (U+202F)</extracomment>
        <translation>%1&#x202f;%</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>%1 kHz</source>
        <translation>%1 kHz</translation>
    </message>
    <message>
        <source>Maximum %1</source>
        <extracomment>%1 is a volume: the unit allows no more</extracomment>
        <translation>Maximal %1</translation>
    </message>
    <message>
        <source>Reconnecting…</source>
        <translation>Verbinde neu …</translation>
    </message>
    <message>
        <source>Each screen asks the unit for its state when it appears.</source>
        <translation>Jede Ansicht fragt die Einheit beim Öffnen nach ihrem Zustand.</translation>
    </message>
    <message>
        <source>The unit is told after each connect that its serial port is in use.</source>
        <translation>Die Einheit erfährt nach jedem Verbinden, dass ihre serielle Schnittstelle benutzt wird.</translation>
    </message>
</context>
<context>
    <name>VolumeCard</name>
    <message>
        <source>%1, quieter</source>
        <translation>%1, leiser</translation>
    </message>
    <message>
        <source>%1, louder</source>
        <translation>%1, lauter</translation>
    </message>
</context>
<context>
    <name>WheelPicker</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
</TS>
