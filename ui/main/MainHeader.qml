import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Sheets
import Marrowcut.Style

// Title, credit line and the choice of the preset, with the help button in the corner.
Item {
    id: root

    required property QueueViewModel queue

    signal helpRequested()

    implicitHeight: column.implicitHeight + 24 + 16

    ColumnLayout {
        id: column

        y: 24
        width: parent.width
        spacing: 6

        ColumnLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: 4

            Label {
                Layout.alignment: Qt.AlignHCenter
                text: "Marrowcut"
                font.pixelSize: 24
                font.bold: true
                color: Theme.primary
                Accessible.role: Accessible.Heading
            }

            CreditLine {
                Layout.alignment: Qt.AlignHCenter
            }

            Label {
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: 2
                text: "small proxies for long footage headed to transcription"
            }
        }

        SegmentedPicker {
            objectName: "presetPicker"
            Layout.alignment: Qt.AlignHCenter
            Layout.fillWidth: true
            Layout.maximumWidth: 240
            model: root.queue.presetNames // qmllint disable type
            currentIndex: root.queue.presetIndex
            Accessible.role: Accessible.Grouping
            Accessible.name: "Quality preset"
            onActivated: index => root.queue.choosePreset(index)
        }

        PresetDescription {
            Layout.alignment: Qt.AlignHCenter
            Layout.fillWidth: true
            Layout.maximumWidth: 320
            description: root.queue.presetDescription
        }
    }

    SymbolButton {
        objectName: "helpButton"
        anchors.right: parent.right
        anchors.rightMargin: 16
        y: 16
        symbol: "questionmark.circle"
        symbolSize: 22
        Accessible.name: "Help"
        onClicked: root.helpRequested()

        ToolTipHandler {
            text: "How Marrowcut works"
        }
    }
}
