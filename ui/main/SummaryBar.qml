import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Style

// How far the queue is, and where its proxies go.
ColumnLayout {
    id: root

    required property QueueViewModel queue
    readonly property bool hasOutput: queue.outputDirPath.length > 0

    spacing: 6

    ThinProgressBar {
        objectName: "overallBar"
        Layout.fillWidth: true
        value: root.queue.overallProgress
        Accessible.name: "Overall progress"
    }

    RowLayout {
        spacing: 8

        Text {
            objectName: "doneText"
            Layout.fillWidth: true
            text: root.queue.doneText
            font.pixelSize: 11
            color: Theme.secondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        PushButton {
            objectName: "revealButton"
            visible: root.hasOutput
            text: "Reveal in Finder"
            font.pixelSize: 11
            onClicked: root.queue.revealOutput()
        }
    }

    RowLayout {
        visible: root.hasOutput
        spacing: 4

        Text {
            text: "Exporting to:"
            font.pixelSize: 10
            font.weight: Font.Medium
            color: Theme.secondary
        }

        Text {
            id: outputPath

            objectName: "outputPath"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignLeft
            text: root.queue.outputDirPath
            textFormat: Text.PlainText
            font.pixelSize: 10
            color: Theme.tertiary
            elide: Text.ElideMiddle
            Accessible.role: Accessible.StaticText
            Accessible.name: "Exporting to " + text

            ToolTipHandler {
                text: outputPath.truncated ? outputPath.text : ""
            }
        }
    }
}
