<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AlertSheet</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Connections go to %1.</source>
        <translation>Las conexiones van a %1.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Change address</source>
        <translation>Cambiar dirección</translation>
    </message>
</context>
<context>
    <name>BandChoice</name>
    <message>
        <source>Band</source>
        <translation>Banda</translation>
    </message>
</context>
<context>
    <name>BandHandle</name>
    <message>
        <source>%1 band %2, %3</source>
        <translation>%1 banda %2, %3</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>desconocido</translation>
    </message>
</context>
<context>
    <name>BusyArc</name>
    <message>
        <source>Waiting for the unit</source>
        <translation>Esperando a la unidad</translation>
    </message>
</context>
<context>
    <name>EqualiserView</name>
    <message>
        <source>Equaliser response, approximate</source>
        <translation>Respuesta del ecualizador, aproximada</translation>
    </message>
    <message>
        <source>approximate</source>
        <translation>aproximado</translation>
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
        <translation>¿Dónde está su unidad?</translation>
    </message>
    <message>
        <source>Type its address, as your installer or your router shows it.</source>
        <translation>Escriba su dirección, tal como la indica su instalador o su router.</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Unit number</source>
        <translation>Número de unidad</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Conectar</translation>
    </message>
    <message>
        <source>Try the demo</source>
        <translation>Probar la demo</translation>
    </message>
</context>
<context>
    <name>GroupScreen</name>
    <message>
        <source>What was last set for the group. Its zones may play at other levels.</source>
        <translation>Lo último ajustado para el grupo. Sus zonas pueden sonar a otro nivel.</translation>
    </message>
</context>
<context>
    <name>Header</name>
    <message>
        <source>Unit at %1, %2</source>
        <translation>Unidad en %1, %2</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Reconectar</translation>
    </message>
    <message>
        <source>Unit and address</source>
        <translation>Unidad y dirección</translation>
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
        <translation>Pantallas</translation>
    </message>
</context>
<context>
    <name>NumberField</name>
    <message>
        <source>−15 to 15 dB</source>
        <translation>−15 a 15 dB</translation>
    </message>
    <message>
        <source>20 Hz to 20 kHz</source>
        <translation>20 Hz a 20 kHz</translation>
    </message>
</context>
<context>
    <name>OutputScreen</name>
    <message>
        <source>Part of the screen</source>
        <translation>Parte de la pantalla</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Nivel</translation>
    </message>
    <message>
        <source>Equaliser</source>
        <translation>Ecualizador</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Invite another phone</source>
        <translation>Invitar a otro teléfono</translation>
    </message>
    <message>
        <source>Type the code that the program shows where it runs, or on a paired phone under Settings.</source>
        <translation>Escriba el código que muestra el programa donde se ejecuta, o un teléfono emparejado en Ajustes.</translation>
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
        <translation>Enviado</translation>
    </message>
    <message>
        <source>%1 %2, sent</source>
        <translation>%1 %2, enviado</translation>
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
        <translation>Recuperar %1</translation>
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
        <translation>entrada</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>volumen</translation>
    </message>
    <message>
        <source>mute</source>
        <translation>silencio</translation>
    </message>
    <message>
        <source>loudness</source>
        <translation>sonoridad</translation>
    </message>
    <message>
        <source>power</source>
        <translation>alimentación</translation>
    </message>
    <message>
        <source>bass</source>
        <translation>graves</translation>
    </message>
    <message>
        <source>treble</source>
        <translation>agudos</translation>
    </message>
    <message>
        <source>type</source>
        <translation>tipo</translation>
    </message>
    <message>
        <source>frequency</source>
        <translation>frecuencia</translation>
    </message>
    <message>
        <source>gain</source>
        <translation>ganancia</translation>
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
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Hecho</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Lumbra Remote %1</source>
        <translation>Lumbra Remote %1</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Licencia</translation>
    </message>
</context>
<context>
    <name>StoreDialog</name>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Replace what is stored as &quot;%1&quot;? This can&apos;t be undone.</source>
        <translation>¿Sustituir lo guardado en «%1»? No se puede deshacer.</translation>
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
        <translation>encendido</translation>
    </message>
    <message>
        <source>off</source>
        <translation>apagado</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>desconocido</translation>
    </message>
</context>
<context>
    <name>System</name>
    <message>
        <source>Zones</source>
        <translation>Zonas</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Salidas</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Grupos</translation>
    </message>
    <message>
        <source>Overrides</source>
        <translation>Prioridades</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Escenas</translation>
    </message>
    <message>
        <source>Zone</source>
        <translation>Zona</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Grupo</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Escena</translation>
    </message>
    <message>
        <source>Override</source>
        <translation>Prioridad</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrada</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Silencio</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Sonoridad</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Encendido</translation>
    </message>
    <message>
        <source>Bass</source>
        <translation>Graves</translation>
    </message>
    <message>
        <source>Treble</source>
        <translation>Agudos</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frecuencia</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Ganancia</translation>
    </message>
    <message>
        <source>Bypass</source>
        <translation>Anulado</translation>
    </message>
    <message>
        <source>High-pass</source>
        <translation>Paso alto</translation>
    </message>
    <message>
        <source>High shelf</source>
        <translation>Shelf agudos</translation>
    </message>
    <message>
        <source>Low-pass</source>
        <translation>Paso bajo</translation>
    </message>
    <message>
        <source>Low shelf</source>
        <translation>Shelf graves</translation>
    </message>
    <message>
        <source>Parametric</source>
        <translation>Paramétrico</translation>
    </message>
    <message>
        <source>Recall</source>
        <translation>Recuperar</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>Dirección IP</translation>
    </message>
    <message>
        <source>Unit number</source>
        <translation>Número de unidad</translation>
    </message>
    <message>
        <source>State queries</source>
        <translation>Consultas de estado</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Puerto serie</translation>
    </message>
    <message>
        <source>Start tab</source>
        <translation>Pestaña inicial</translation>
    </message>
    <message>
        <source>Advanced mode</source>
        <translation>Modo avanzado</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Failed to connect to IP address %1.</source>
        <translation>No se pudo conectar con la dirección IP %1.</translation>
    </message>
    <message>
        <source>%1 percent</source>
        <translation>%1 por ciento</translation>
    </message>
    <message>
        <source>%1 decibels</source>
        <translation>%1 decibelios</translation>
    </message>
    <message>
        <source>%1 kilohertz</source>
        <translation>%1 kilohercios</translation>
    </message>
    <message>
        <source>%1 hertz</source>
        <translation>%1 hercios</translation>
    </message>
    <message>
        <source>Simulated unit</source>
        <translation>Unidad simulada</translation>
    </message>
    <message>
        <source>An address has four numbers, as in 192.168.1.50.</source>
        <translation>Una dirección tiene cuatro números, como 192.168.1.50.</translation>
    </message>
    <message>
        <source>Each number of an address is 255 at most.</source>
        <translation>Cada número de una dirección es 255 como máximo.</translation>
    </message>
    <message>
        <source>Without an address there is no unit to reach.</source>
        <translation>Sin dirección no hay unidad que alcanzar.</translation>
    </message>
    <message>
        <source>An address has no blanks.</source>
        <translation>Una dirección no tiene espacios.</translation>
    </message>
    <message>
        <source>A port can&apos;t be given; the unit is always reached on port 23.</source>
        <translation>No se puede indicar un puerto; la unidad siempre se alcanza en el puerto 23.</translation>
    </message>
    <message>
        <source>This is neither an address, as 192.168.1.50, nor a host&apos;s name.</source>
        <translation>No es ni una dirección, como 192.168.1.50, ni el nombre de un equipo.</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Conectando</translation>
    </message>
    <message>
        <source>Waiting for the unit</source>
        <translation>Esperando a la unidad</translation>
    </message>
    <message>
        <source>Unit %1 does not answer</source>
        <translation>La unidad %1 no responde</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Conectado</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Sin conexión</translation>
    </message>
    <message>
        <source>Zone %1</source>
        <translation>Zona %1</translation>
    </message>
    <message>
        <source>Output %1</source>
        <translation>Salida %1</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>Grupo %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Escena %1</translation>
    </message>
    <message>
        <source>Source %1</source>
        <translation>Fuente %1</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>desconocido</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Apagado</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Silenciado</translation>
    </message>
    <message>
        <source>%1, asked for %2</source>
        <extracomment>%1 is what the unit has reported, %2 what it has been asked for since</extracomment>
        <translation>%1, se ha pedido %2</translation>
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
        <translation>Máximo %1</translation>
    </message>
    <message>
        <source>Reconnecting…</source>
        <translation>Reconectando …</translation>
    </message>
    <message>
        <source>Each screen asks the unit for its state when it appears.</source>
        <translation>Cada pantalla pregunta a la unidad su estado al aparecer.</translation>
    </message>
    <message>
        <source>The unit is told after each connect that its serial port is in use.</source>
        <translation>Tras cada conexión se indica a la unidad que su puerto serie está en uso.</translation>
    </message>
</context>
<context>
    <name>VolumeCard</name>
    <message>
        <source>%1, quieter</source>
        <translation>%1, bajar</translation>
    </message>
    <message>
        <source>%1, louder</source>
        <translation>%1, subir</translation>
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
