import QtQuick
import QtTest
import Marrowcut.Tests

WindowCase {
    id: test

    name: "RowKeys"

    function test_keyboardGoesThroughTheRows() {
        queue.add("/clips/earlier.mxf", "done");
        row(0);
        click("clearButton");
        tryVerify(() => find("jobList") === null);
        queue.add("/clips/A001.mxf");
        queue.add("/clips/A002.mxf");
        queue.add("/clips/A003.mxf", "failed:encode error");
        row(2);
        find("advancedButton").forceActiveFocus();
        const steps = [
            [Qt.Key_Tab, () => row(0)],
            [Qt.Key_Space, () => row(0)], // unticks it
            [Qt.Key_Tab, () => piece(0, "includeCheck")],
            [Qt.Key_Down, () => row(1)],
            [Qt.Key_Tab, () => piece(1, "includeCheck")],
            [Qt.Key_Tab, () => piece(1, "removeButton")],
            [Qt.Key_Tab, () => find("selectAllButton")],
            [Qt.Key_Backtab, () => piece(1, "removeButton")],
            [Qt.Key_Down, () => row(2)],
            [Qt.Key_Tab, () => piece(2, "retryButton")],
            [Qt.Key_Space, () => row(2)] // presses it
        ];
        for (const [key, focused] of steps) {
            keyClick(key);
            tryVerify(() => focused().visualFocus);
        }
        verify(!queue.isSelected(0));
        tryVerify(() => piece(2, "includeCheck") !== null);
    }

    function test_keysMoveAndRemove() {
        addClips(60);
        const list = find("jobList");
        row(0).takeFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_End);
        tryVerify(() => row(59).visualFocus && list.isInView(59));
        keyClick(Qt.Key_PageUp);
        verify(list.currentIndex < 58 && list.currentItem.visualFocus);
        keyClick(Qt.Key_Home);
        keyClick(Qt.Key_Down);
        tryVerify(() => row(1).visualFocus && list.isInView(1));
        keyClick(Qt.Key_Delete);
        tryVerify(() => row(1).visualFocus && row(1).name === "2.mxf");
        TestDesktop.repeatKey(Qt.Key_Delete);
        compare(queue.jobCount, 59);
        piece(1, "removeButton").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        tryVerify(() => row(1).name === "3.mxf" && piece(1, "removeButton").visualFocus);
        queue.setStatus(1, "encoding");
        tryCompare(row(1), "visualFocus", true);
        keyClick(Qt.Key_Delete);
        compare(queue.jobCount, 58);
    }

    function test_focusIsShownAfterTheLastRow() {
        addClips(1);
        row(0).takeFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Delete);
        tryVerify(() => find("jobList") === null && content.Window.activeFocusItem.visualFocus);
    }

    function test_noKeyActsOnARowOutOfSight() {
        addClips(60);
        const list = find("jobList");
        row(0).takeFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(piece(0, "includeCheck").visualFocus);
        mouseWheel(list, 100, 50, 0, -120 * 20);
        tryVerify(() => !list.isInView(0));
        verify(!findChild(list.currentItem, "includeCheck").activeFocus);
        keyClick(Qt.Key_Space);
        verify(queue.isSelected(0) && list.isInView(0));
        mouseWheel(list, 100, 50, 0, -120 * 20);
        tryVerify(() => !list.isInView(0));
        keyClick(Qt.Key_Tab);
        verify(list.isInView(0));
        compare(queue.jobCount, 60);
    }

    function test_secondSpaceOnGoRemovesNothing() {
        addClips(2);
        find("goButton").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(queue.startCount, 1);
        queue.stageRunning(true);
        tryCompare(row(0), "visualFocus", true);
        queue.setStatus(0, "probing");
        awaitLayout();
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Space);
        compare(queue.jobCount, 2);
        verify(row(0).visualFocus);
    }

    function test_groundIsForKeyboardFocusOnly() {
        addClips(2);
        click("goButton");
        queue.stageRunning(true);
        tryVerify(() => row(0).activeFocus);
        verify(!row(0).hasKeyboardFocus);
        keyClick(Qt.Key_Down);
        tryVerify(() => row(1).hasKeyboardFocus);
    }
}
