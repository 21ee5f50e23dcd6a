import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Marrowcut.Main
import Marrowcut.Style

// The column header, the rows and the control bar.
ColumnLayout {
    id: root

    required property QueueViewModel queue
    property bool showAdvancedOptions: false
    readonly property int includeColumnWidth: 20
    readonly property int burnInColumnWidth: 58
    // How much of the burn-in column is there: one value moves its title and every row together.
    property real burnInShare: showAdvancedOptions ? 1 : 0

    spacing: 0

    Behavior on burnInShare {
        NumberAnimation {
            duration: 150
            easing.type: Easing.InOutQuad
        }
    }

    JobListHeader {
        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 6
        Layout.bottomMargin: 2
        visible: root.queue.hasQueuedJobs
        includeColumnWidth: root.includeColumnWidth
        burnInColumnWidth: root.burnInColumnWidth
        burnInShare: root.burnInShare
        showAdvancedOptions: root.showAdvancedOptions
        onAdvancedToggled: root.showAdvancedOptions = !root.showAdvancedOptions
    }

    Rectangle {
        Layout.fillWidth: true
        Layout.fillHeight: true
        color: Theme.base
        onHeightChanged: list.shrink()

        ListView {
            id: list

            readonly property int rowHeight: 36
            readonly property real allRowsHeight: topMargin + count * rowHeight + bottomMargin
            // In a lower one it shows no row, and takes rows that are appended for some that stand before the view.
            readonly property int lowestHeight: topMargin + rowHeight + bottomMargin

            // Not a property: a new height can change the count, and its binding would be a loop.
            function wantedHeight(): real {
                return Math.max(lowestHeight, Math.min(parent.height, allRowsHeight));
            }

            function shrink() {
                height = Math.min(height, wantedHeight());
            }

            function openMenu() {
                const row = currentItem as JobRow;
                if (row)
                    row.requestMenu(Qt.point(12, row.height));
            }

            objectName: "jobList"
            width: parent.width
            height: lowestHeight
            onAllRowsHeightChanged: shrink()
            // What comes into an emptied list has no current row, and so none that the Tab key reaches.
            onCountChanged: if (currentIndex < 0 && count > 0) currentIndex = 0
            onContentYChanged: rest.restart()
            topMargin: 4
            bottomMargin: 4
            model: root.queue.jobs
            reuseItems: true
            cacheBuffer: 0
            highlightMoveDuration: 0 // it is not seen, but draws every frame while it is on its way
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            Accessible.role: Accessible.List
            Accessible.name: "Jobs"
            Keys.onMenuPressed: openMenu()
            Keys.onPressed: event => {
                if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
                    openMenu();
            }

            // Rows take about a millisecond each to make, and a drop can show a window full of them: they are
            // uncovered some each frame.
            FrameAnimation {
                running: list.height < list.wantedHeight()
                onTriggered: {
                    list.height = Math.min(list.wantedHeight(), list.height + 3 * list.rowHeight);
                    if (!running)
                        rest.restart();
                }
            }

            // At rest, the page before and the one after are made in spare time, so that scrolling finds them there. Only
            // a new value makes the list look to both sides, so the value alternates.
            Timer {
                id: rest

                interval: 100
                onTriggered: {
                    const page = Math.ceil(list.parent.height);
                    list.cacheBuffer = list.cacheBuffer === page ? page + 1 : page;
                }
            }

            // It fits into the rows' padding.
            T.ScrollBar.vertical: ScrollBar {
                objectName: "scrollBar"
                policy: list.allRowsHeight > list.parent.height ? T.ScrollBar.AlwaysOn : T.ScrollBar.AlwaysOff
            }

            // qmllint disable unqualified
            delegate: JobRow {
                width: list.width
                height: list.rowHeight
                includeColumnWidth: root.includeColumnWidth
                burnInColumnWidth: root.burnInColumnWidth
                burnInShare: root.burnInShare
                onIncludeToggled: root.queue.toggleSelected(jobId)
                onBurnInToggled: root.queue.toggleBurnIn(jobId)
                onRemoveRequested: root.queue.removeFromQueue(jobId)
                onRetryRequested: root.queue.retry(jobId)
                onMenuRequested: place => errorMenu.openFor(this, place)
                onFocusEntered: list.currentIndex = index
            }
            // qmllint enable unqualified
        }

        ErrorMenu {
            id: errorMenu

            onCopyRequested: jobId => root.queue.copyError(jobId)
        }

        Divider {
            width: parent.width
        }

        Divider {
            width: parent.width
            anchors.bottom: parent.bottom
        }
    }

    ControlBar {
        // The keyboard's place must not go with the control that hides.
        onVisibleChanged: if (!visible && holdsFocus) list.forceActiveFocus(Qt.OtherFocusReason)
        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 10
        Layout.bottomMargin: 10
        visible: !root.queue.isRunning
        queue: root.queue
    }
}
