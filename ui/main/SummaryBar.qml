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

        Label {
            objectName: "doneText"
            Layout.fillWidth: true
            text: root.queue.doneText
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

        Label {
            id: outputPath

            objectName: "outputPath"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignLeft
            text: root.queue.outputDirPath
            font.pixelSize: 10
            color: Theme.tertiary
            elide: Text.ElideMiddle
            Accessible.name: "Exporting to " + text

            ToolTipHandler {
                text: outputPath.truncated ? outputPath.text : ""
            }
        }
    }
}
