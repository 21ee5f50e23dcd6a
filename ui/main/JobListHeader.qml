import QtQuick
import QtQuick.Layouts
import Marrowcut.Style

// The line above the rows: the burn-in column's title, and the button that shows and hides the column.
RowLayout {
    id: root

    required property int includeColumnWidth
    required property int burnInColumnWidth
    required property real burnInShare
    property bool showAdvancedOptions: false

    spacing: 8

    Item {
        implicitWidth: root.includeColumnWidth
    }

    BurnInTitle {
        Layout.preferredWidth: root.burnInColumnWidth * root.burnInShare
        visible: root.burnInShare > 0
        enabled: root.showAdvancedOptions
        opacity: root.burnInShare
    }

    Item {
        Layout.fillWidth: true
    }

    BorderlessButton {
        objectName: "advancedButton"
        horizontalPadding: 2
        verticalPadding: 3
        text: "Advanced"
        symbol: root.showAdvancedOptions ? "chevron.up" : "chevron.down"
        font.pixelSize: 10
        color: Theme.secondary
        Accessible.name: text
        Accessible.description: root.showAdvancedOptions ? "Hides the burn-in column" : "Shows the burn-in column"
        onClicked: root.showAdvancedOptions = !root.showAdvancedOptions
    }
}
