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
        keyClick(Qt.Key_Tab);
        tryCompare(row(0), "visualFocus", true);
        keyClick(Qt.Key_Space);
        tryVerify(() => !queue.isSelected(0));
        keyClick(Qt.Key_Tab);
        tryCompare(piece(0, "includeCheck"), "visualFocus", true);
        keyClick(Qt.Key_Down);
        tryCompare(row(1), "visualFocus", true);
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Tab);
        tryCompare(piece(1, "removeButton"), "activeFocus", true);
        keyClick(Qt.Key_Tab);
        tryCompare(find("selectAllButton"), "activeFocus", true);
        keyClick(Qt.Key_Backtab);
        tryCompare(piece(1, "removeButton"), "activeFocus", true);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Tab);
        tryCompare(piece(2, "retryButton"), "visualFocus", true);
        keyClick(Qt.Key_Space);
        tryVerify(() => piece(2, "includeCheck") !== null);
        tryCompare(row(2), "visualFocus", true);
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
        compare(queue.jobCount, 59);
        tryVerify(() => row(1).visualFocus && row(1).name === "2.mxf");
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
