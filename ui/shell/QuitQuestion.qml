import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Marrowcut.Style

// Asks before quitting ends a run.
T.Popup {
    id: root

    required property bool shown
    readonly property string question: "A run is going on. Quit anyway?"

    signal keepRunning()
    signal quit()

    function pressReturn() {
        const button = contentItem.Window.activeFocusItem as PushButton;
        if (button)
            button.clicked();
        else
            keepRunning();
    }

    parent: T.Overlay.overlay
    x: Math.round((parent.width - width) / 2)
    y: Math.round((parent.height - height) / 2)
    padding: 20
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    visible: shown
    onAboutToShow: contentItem.parent.Accessible.name = question // Qt's own item has the role only

    // The overlay sets the opacity of what stands here.
    T.Overlay.modal: Item {
        Rectangle {
            anchors.fill: parent
            color: Theme.window
            opacity: 0.7
        }
    }

    background: Panel {
        radius: 10
    }

    contentItem: ColumnLayout {
        spacing: 16

        Label {
            text: root.question
            font.pixelSize: Theme.bodySize
            font.bold: true
            color: Theme.primary
            Accessible.role: Accessible.AlertMessage
        }

        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: 8

            PushButton {
                objectName: "quitButton"
                text: "Quit"
                onClicked: root.quit()
            }

            PushButton {
                objectName: "keepRunningButton"
                focus: true
                text: "Keep Running"
                highlighted: true
                onClicked: root.keepRunning()
            }
        }

        Shortcut {
            sequences: ["Return", "Enter"]
            enabled: root.opened
            onActivated: root.pressReturn()
        }

        Shortcut {
            sequence: "Escape"
            enabled: root.opened
            onActivated: root.keepRunning()
        }
    }
}
