import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Style

// What can be done with the queue as a whole, while no run is going on.
RowLayout {
    id: root

    required property QueueViewModel queue

    signal focusLost(bool byKeyboard)

    // The keyboard focus must not go with a button that hides.
    function passFocusOn(button: PushButton) {
        if (!button.visible && button.activeFocus)
            focusLost(button.visualFocus);
    }

    spacing: 8

    PushButton {
        objectName: "selectAllButton"
        visible: root.queue.hasQueuedJobs
        onVisibleChanged: root.passFocusOn(this)
        text: root.queue.allQueuedSelected ? "Select None" : "Select All"
        otherText: "Select None"
        font.pixelSize: 11
        onClicked: root.queue.toggleAllSelected()
    }

    PushButton {
        objectName: "clearButton"
        visible: root.queue.hasCompletedJobs
        onVisibleChanged: root.passFocusOn(this)
        text: "Clear Completed"
        font.pixelSize: 11
        onClicked: root.queue.clearCompleted()
    }

    Label {
        Layout.fillWidth: true
        Layout.minimumHeight: goButton.implicitHeight // the bar's height, with or without the button
        text: "Drop more to add to the queue"
        horizontalAlignment: Text.AlignRight
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    PushButton {
        id: goButton

        objectName: "goButton"
        visible: root.queue.hasSelectedQueuedJobs
        onVisibleChanged: root.passFocusOn(this)
        text: "Go"
        highlighted: true
        onClicked: root.queue.start()
    }

    Shortcut {
        sequences: ["Return", "Enter"]
        enabled: goButton.visible
        autoRepeat: false
        onActivated: root.queue.start()
    }
}
