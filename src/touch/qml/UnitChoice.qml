import QtQuick
import Lumbra.Touch

/// The number of the unit.
ChoiceRow {
    id: root

    required property int minimum
    required property int maximum

    objectName: "unitChoice"
    columns: choices.length
    choices: {
        const numbers = [];
        for (let unit = minimum; unit <= maximum; ++unit)
            numbers.push(unit.toString());
        return numbers;
    }
}
