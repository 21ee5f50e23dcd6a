import QtQuick
import QtQuick.Templates as T
import Marrowcut.Main
import Marrowcut.Style

// The scrolling rows: keyboard, focus, the error menu, and the running row in view.
ListView {
    id: root

    required property QueueViewModel queue
    readonly property int rowHeight: Math.ceil(nameMetrics.height) + 4 + 4 + 2 * 4 // name, spacing, bar, padding
    readonly property alias isGuarded: guardTime.running
    property bool followsRun: true
    property string lostFocus // what had the keyboard focus in a row that is being removed: "row" or "button"

    function isInView(index: int): bool {
        const y = originY + index * rowHeight;
        return y + rowHeight > contentY && y < contentY + height;
    }

    function takeFocus(reason: int) {
        const row = currentItem as JobRow;
        if (row)
            row.takeFocus(reason);
    }

    function followFocus(row: JobRow) {
        if (row.hasKeyboardFocus)
            positionViewAtIndex(row.index, ListView.Contain);
    }

    function followRun() {
        if (followsRun && queue.activeRow >= 0)
            positionViewAtIndex(queue.activeRow, ListView.Contain);
    }

    function goTo(index: int) {
        currentIndex = Math.max(0, Math.min(count - 1, index));
        takeFocus(Qt.TabFocusReason);
        positionViewAtIndex(currentIndex, ListView.Contain);
    }

    function removeRow(row: JobRow) {
        guardTime.restart();
        lostFocus = !row.hasKeyboardFocus ? "" : Window.activeFocusItem === row ? "row" : "button";
        queue.removeFromQueue(row.jobId);
    }

    // The row in the place of a removed one takes over its focus.
    function restoreFocus() {
        const row = currentItem as JobRow;
        if (row && lostFocus === "button" && row.isQueued)
            row.focusRemoveButton();
        else if (row && lostFocus)
            row.takeFocus(Qt.TabFocusReason);
        lostFocus = "";
    }

    function openErrorMenu(row: JobRow, place: point) {
        errorMenu.jobId = row.jobId;
        errorMenu.popup(row, place);
        errorMenu.currentIndex = 0;
    }

    // A key acts on a row that can be seen.
    function pressKey(key: int): bool {
        const row = currentItem as JobRow;
        if (!row)
            return false;
        if (!isInView(currentIndex)) {
            goTo(currentIndex);
            return true;
        }
        if (key === Qt.Key_Menu)
            row.requestMenu(Qt.point(12, row.height));
        else if (row.isQueued && key === Qt.Key_Delete)
            removeRow(row);
        else if (row.isQueued && key === Qt.Key_Space)
            row.includeToggled();
        return true;
    }

    function moveByKey(key: int): bool {
        const page = Math.max(1, Math.floor(height / rowHeight) - 1);
        const targets = {
            [Qt.Key_Up]: currentIndex - 1,
            [Qt.Key_Down]: currentIndex + 1,
            [Qt.Key_PageUp]: currentIndex - page,
            [Qt.Key_PageDown]: currentIndex + page,
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: count - 1
        };
        if (targets[key] === undefined)
            return false;
        goTo(targets[key]);
        return true;
    }

    objectName: "jobList"
    topMargin: 4
    bottomMargin: 4
    model: queue.jobs
    reuseItems: true
    cacheBuffer: 0 // Qt warns where rows go while others are being created in advance
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    interactive: !mouse.active // dragging with the mouse scrolls nothing
    Accessible.role: Accessible.List
    Accessible.name: "Jobs"
    // What comes into an emptied list has no current row, and so none that the Tab key reaches.
    onCountChanged: {
        if (currentIndex < 0 && count > 0)
            currentIndex = 0;
        restoreFocus();
    }
    onContentYChanged: {
        if (height > 0 && queue.activeRow >= 0)
            followsRun = isInView(queue.activeRow);
        if (activeFocus && !isInView(currentIndex))
            takeFocus(Qt.OtherFocusReason); // a control scrolled out of view must not keep the focus
    }
    onHeightChanged: followRun()
    Keys.onPressed: event => {
        const isMenuKey = event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier;
        if (isMenuKey)
            event.accepted = pressKey(Qt.Key_Menu);
        else if (event.key === Qt.Key_Delete || event.key === Qt.Key_Space)
            event.accepted = event.isAutoRepeat || pressKey(event.key);
        else
            event.accepted = moveByKey(event.key);
    }

    T.ScrollBar.vertical: ScrollBar {
        objectName: "scrollBar"
        padding: 1 // it stays clear of the rows' right edge
        policy: root.visibleArea.heightRatio < 1 ? T.ScrollBar.AlwaysOn : T.ScrollBar.AlwaysOff
    }

    FontMetrics {
        id: nameMetrics

        font.pixelSize: 12
        font.weight: Font.Medium
    }

    // In front of the rows, whose controls accept presses.
    Item {
        parent: root
        anchors.fill: parent

        PointHandler {
            id: mouse

            acceptedDevices: PointerDevice.Mouse
            acceptedButtons: Qt.AllButtons
        }
    }

    // Presses are ignored for as long as a double click can last.
    Timer {
        id: guardTime

        interval: Application.styleHints.mouseDoubleClickInterval
    }

    Connections {
        target: root.queue

        function onActiveRowChanged() {
            root.followRun();
        }

        function onIsRunningChanged() {
            if (root.queue.isRunning)
                guardTime.restart(); // the rows grow into the place of "Go"
            root.followsRun = true;
            root.followRun();
        }
    }

    ThemedMenu {
        id: errorMenu

        property string jobId

        objectName: "errorMenu"
        title: "Error"

        T.Action {
            text: "Copy Error"
            onTriggered: root.queue.copyError(errorMenu.jobId)
        }
    }
}
