<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AlertSheet</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Connections go to %1.</source>
        <translation>Les connexions vont à %1.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Change address</source>
        <translation>Changer l’adresse</translation>
    </message>
</context>
<context>
    <name>BandChoice</name>
    <message>
        <source>Band</source>
        <translation>Bande</translation>
    </message>
</context>
<context>
    <name>BandHandle</name>
    <message>
        <source>%1 band %2, %3</source>
        <translation>%1 bande %2, %3</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>inconnu</translation>
    </message>
</context>
<context>
    <name>BusyArc</name>
    <message>
        <source>Waiting for the unit</source>
        <translation>En attente de l’unité</translation>
    </message>
</context>
<context>
    <name>EqualiserView</name>
    <message>
        <source>Equaliser response, approximate</source>
        <translation>Réponse de l’égaliseur, approximative</translation>
    </message>
    <message>
        <source>approximate</source>
        <translation>approximatif</translation>
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
        <translation>Où est votre unité ?</translation>
    </message>
    <message>
        <source>Type its address, as your installer or your router shows it.</source>
        <translation>Saisissez son adresse, telle que l’indique votre installateur ou votre routeur.</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Unit number</source>
        <translation>Numéro de l’unité</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connecter</translation>
    </message>
    <message>
        <source>Try the demo</source>
        <translation>Essayer la démo</translation>
    </message>
</context>
<context>
    <name>GroupScreen</name>
    <message>
        <source>What was last set for the group. Its zones may play at other levels.</source>
        <translation>Ce qui a été réglé en dernier pour le groupe. Ses zones peuvent jouer à d’autres niveaux.</translation>
    </message>
</context>
<context>
    <name>Header</name>
    <message>
        <source>Unit at %1, %2</source>
        <translation>Unité à %1, %2</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Reconnecter</translation>
    </message>
    <message>
        <source>Unit and address</source>
        <translation>Unité et adresse</translation>
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
        <translation>Écrans</translation>
    </message>
</context>
<context>
    <name>NumberField</name>
    <message>
        <source>−15 to 15 dB</source>
        <translation>−15 à 15 dB</translation>
    </message>
    <message>
        <source>20 Hz to 20 kHz</source>
        <translation>20 Hz à 20 kHz</translation>
    </message>
</context>
<context>
    <name>OutputScreen</name>
    <message>
        <source>Part of the screen</source>
        <translation>Partie de l’écran</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Niveau</translation>
    </message>
    <message>
        <source>Equaliser</source>
        <translation>Égaliseur</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Invite another phone</source>
        <translation>Inviter un autre téléphone</translation>
    </message>
    <message>
        <source>Type the code that the program shows where it runs, or on a paired phone under Settings.</source>
        <translation>Saisissez le code affiché là où le programme s’exécute, ou sur un téléphone associé sous Réglages.</translation>
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
        <translation>Envoyé</translation>
    </message>
    <message>
        <source>%1 %2, sent</source>
        <translation>%1 %2, envoyé</translation>
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
        <translation>Rappeler %1</translation>
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
        <translation>entrée</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>volume</translation>
    </message>
    <message>
        <source>mute</source>
        <translation>muet</translation>
    </message>
    <message>
        <source>loudness</source>
        <translation>loudness</translation>
    </message>
    <message>
        <source>power</source>
        <translation>marche</translation>
    </message>
    <message>
        <source>bass</source>
        <translation>graves</translation>
    </message>
    <message>
        <source>treble</source>
        <translation>aigus</translation>
    </message>
    <message>
        <source>type</source>
        <translation>type</translation>
    </message>
    <message>
        <source>frequency</source>
        <translation>fréquence</translation>
    </message>
    <message>
        <source>gain</source>
        <translation>gain</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>%1 is the name of an item (a zone, an output ...), %2 a caption of its controls: &quot;Kitchen volume&quot;</extracomment>
        <translation>%2 %1</translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Lumbra Remote %1</source>
        <translation>Lumbra Remote %1</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Licence</translation>
    </message>
</context>
<context>
    <name>StoreDialog</name>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Replace what is stored as &quot;%1&quot;? This can&apos;t be undone.</source>
        <translation>Remplacer ce qui est enregistré sous «&#xa0;%1&#xa0;»&#xa0;? C’est irréversible.</translation>
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
        <translation>activé</translation>
    </message>
    <message>
        <source>off</source>
        <translation>désactivé</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>inconnu</translation>
    </message>
</context>
<context>
    <name>System</name>
    <message>
        <source>Zones</source>
        <translation>Zones</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Sorties</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Groupes</translation>
    </message>
    <message>
        <source>Overrides</source>
        <translation>Priorités</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Scènes</translation>
    </message>
    <message>
        <source>Zone</source>
        <translation>Zone</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Groupe</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Scène</translation>
    </message>
    <message>
        <source>Override</source>
        <translation>Priorité</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Muet</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Loudness</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Marche</translation>
    </message>
    <message>
        <source>Bass</source>
        <translation>Graves</translation>
    </message>
    <message>
        <source>Treble</source>
        <translation>Aigus</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Fréquence</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Gain</translation>
    </message>
    <message>
        <source>Bypass</source>
        <translation>Inactif</translation>
    </message>
    <message>
        <source>High-pass</source>
        <translation>Passe-haut</translation>
    </message>
    <message>
        <source>High shelf</source>
        <translation>Plateau haut</translation>
    </message>
    <message>
        <source>Low-pass</source>
        <translation>Passe-bas</translation>
    </message>
    <message>
        <source>Low shelf</source>
        <translation>Plateau bas</translation>
    </message>
    <message>
        <source>Parametric</source>
        <translation>Paramétrique</translation>
    </message>
    <message>
        <source>Recall</source>
        <translation>Rappeler</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>Adresse IP</translation>
    </message>
    <message>
        <source>Unit number</source>
        <translation>Numéro de l’unité</translation>
    </message>
    <message>
        <source>State queries</source>
        <translation>Requêtes d’état</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Port série</translation>
    </message>
    <message>
        <source>Start tab</source>
        <translation>Onglet de départ</translation>
    </message>
    <message>
        <source>Advanced mode</source>
        <translation>Mode avancé</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Failed to connect to IP address %1.</source>
        <translation>Échec de la connexion à l’adresse IP %1.</translation>
    </message>
    <message>
        <source>%1 percent</source>
        <translation>%1 pour cent</translation>
    </message>
    <message>
        <source>%1 decibels</source>
        <translation>%1 décibels</translation>
    </message>
    <message>
        <source>%1 kilohertz</source>
        <translation>%1 kilohertz</translation>
    </message>
    <message>
        <source>%1 hertz</source>
        <translation>%1 hertz</translation>
    </message>
    <message>
        <source>Simulated unit</source>
        <translation>Unité simulée</translation>
    </message>
    <message>
        <source>An address has four numbers, as in 192.168.1.50.</source>
        <translation>Une adresse comporte quatre nombres, comme 192.168.1.50.</translation>
    </message>
    <message>
        <source>Each number of an address is 255 at most.</source>
        <translation>Chaque nombre d’une adresse vaut 255 au plus.</translation>
    </message>
    <message>
        <source>Without an address there is no unit to reach.</source>
        <translation>Sans adresse, aucune unité ne peut être jointe.</translation>
    </message>
    <message>
        <source>An address has no blanks.</source>
        <translation>Une adresse ne comporte pas d’espace.</translation>
    </message>
    <message>
        <source>A port can&apos;t be given; the unit is always reached on port 23.</source>
        <translation>Aucun port ne peut être indiqué ; l’unité est toujours jointe sur le port 23.</translation>
    </message>
    <message>
        <source>This is neither an address, as 192.168.1.50, nor a host&apos;s name.</source>
        <translation>Ce n’est ni une adresse, comme 192.168.1.50, ni un nom d’hôte.</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Waiting for the unit</source>
        <translation>Attente de l’unité</translation>
    </message>
    <message>
        <source>Unit %1 does not answer</source>
        <translation>L’unité %1 ne répond pas</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Non connecté</translation>
    </message>
    <message>
        <source>Zone %1</source>
        <translation>Zone %1</translation>
    </message>
    <message>
        <source>Output %1</source>
        <translation>Sortie %1</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>Groupe %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Scène %1</translation>
    </message>
    <message>
        <source>Source %1</source>
        <translation>Source %1</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Éteint</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Muet</translation>
    </message>
    <message>
        <source>%1, asked for %2</source>
        <extracomment>%1 is what the unit has reported, %2 what it has been asked for since</extracomment>
        <translation>%1, demandé : %2</translation>
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
        <translation>Maximum %1</translation>
    </message>
    <message>
        <source>Reconnecting…</source>
        <translation>Reconnexion …</translation>
    </message>
    <message>
        <source>Each screen asks the unit for its state when it appears.</source>
        <translation>Chaque écran demande son état à l’unité lorsqu’il apparaît.</translation>
    </message>
    <message>
        <source>The unit is told after each connect that its serial port is in use.</source>
        <translation>Après chaque connexion, l’unité apprend que son port série est utilisé.</translation>
    </message>
</context>
<context>
    <name>VolumeCard</name>
    <message>
        <source>%1, quieter</source>
        <translation>%1, moins fort</translation>
    </message>
    <message>
        <source>%1, louder</source>
        <translation>%1, plus fort</translation>
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
