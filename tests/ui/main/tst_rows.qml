import QtQuick
import QtTest
import Marrowcut.Main
import Marrowcut.Style
import Marrowcut.Tests

WindowCase {
    id: test

    name: "Rows"

    function cleanup() {
        TestDesktop.setDoubleClickTime(-1);
    }

    function test_forms_data(): list<var> {
        return [
            {tag: "queued", status: "queued", text: "Queued"},
            {tag: "probing", status: "probing", text: "Reading metadata…", bar: 0.4, tint: Theme.accent},
            {tag: "encoding", status: "encoding", text: "Encoding…", eta: "· 1m left", bar: 0.4, tint: Theme.accent, said: ", 40 percent"},
            {tag: "done", status: "done", text: "Done", bar: 1, tint: Theme.success},
            {tag: "skipped", status: "skipped", text: "Already done", bar: 1, tint: Theme.success},
            {tag: "failed", status: "failed:encode error", text: "Failed: encode error", bar: 0.4, tint: Theme.failure}
        ];
    }

    function test_forms(data: var) {
        queue.add("/clips/A001.mxf", "queued", 0.4, 90);
        verify(piece(0, "includeCheck") && piece(0, "removeButton") && !piece(0, "bar"));
        queue.setStatus(0, data.status);
        tryVerify(() => piece(0, "status").text === data.text);
        const queued = data.status === "queued";
        const failed = data.status.startsWith("failed");
        compare(row(0).accessibleName, "A001.mxf, " + data.text + (data.said ?? ""));
        compare(piece(0, "name").text, "A001.mxf");
        compare(piece(0, "status").color, failed ? Theme.failure : Theme.secondary);
        compare(piece(0, "eta")?.text, data.eta);
        compare(piece(0, "includeCheck") !== null, queued);
        compare(piece(0, "removeButton") !== null, queued);
        compare(piece(0, "retryButton") !== null, failed);
        compare(piece(0, "burnInCheck"), null);
        compare([piece(0, "bar")?.value, piece(0, "bar")?.tint], [data.bar, data.tint]);
    }

    function test_includeCheckFollowsAndRowIsRemoved() {
        queue.add("/clips/A001.mxf");
        queue.add("/clips/A002.mxf");
        const check = piece(0, "includeCheck");
        mouseClick(check);
        tryCompare(check, "checked", false);
        verify(!queue.isSelected(0));
        queue.setSelected(0, true);
        tryCompare(check, "checked", true);
        mouseClick(piece(0, "removeButton"));
        const list = findChild(content, "jobList");
        tryCompare(list, "count", 1);
        compare(piece(0, "name").text, "A002.mxf");
        // A row that is kept for reuse is not there for a screen reader either.
        compare(Array.from(list.contentItem.children).filter(item => item.jobId && item.visible).length, 1);
    }

    function test_burnInColumn() {
        queue.add("/clips/A001.mxf");
        queue.add("/clips/A002.mxf");
        queue.setSelected(1, false);
        click("advancedButton");
        tryVerify(() => piece(0, "burnInCheck") !== null && piece(0, "burnInCheck").width === 58);
        verify(find("burnInTitle"));
        compare(find("advancedButton").symbol, "chevron.up");
        compare(find("burnInTitle").mapToItem(content, 0, 0).x, piece(0, "burnInCheck").mapToItem(content, 0, 0).x);
        mouseClick(piece(0, "burnInCheck"), 7);
        tryVerify(() => !queue.isBurnInEnabled(0));
        piece(0, "burnInCheck").Accessible.toggleAction();
        verify(queue.isBurnInEnabled(0));
        fuzzyCompare(piece(1, "burnInCheck").opacity, 0.4, 0.001);
        for (const press of [check => mouseClick(check, 7), check => check.Accessible.toggleAction(), check => check.Accessible.pressAction()]) {
            press(piece(1, "burnInCheck"));
            verify(queue.isBurnInEnabled(1));
        }

        queue.setStatus(0, "done");
        queue.setStatus(1, "done");
        tryVerify(() => find("advancedButton") === null);
        compare(piece(0, "burnInCheck"), null);
        queue.add("/clips/A003.mxf");
        tryVerify(() => find("advancedButton") !== null);
        compare(find("advancedButton").symbol, "chevron.up");
        click("advancedButton");
        tryVerify(() => find("burnInTitle") === null);
        compare(piece(2, "burnInCheck"), null);
    }

    function test_burnInHelp() {
        queue.add("/clips/A001.mxf");
        click("advancedButton");
        tryVerify(() => find("burnInTitle") !== null && find("burnInTitle").width === 58);
        const title = find("burnInTitle");
        for (let press = 0; press < 2; ++press) {
            mouseClick(title);
            tryCompare(findChild(title, "burnInHelp"), "opened", true);
        }
        verify(findChild(title, "burnInHelp").contentItem.Accessible.name.startsWith("Turn this off per file"));
        keyClick(Qt.Key_Escape);
        tryCompare(title, "showBurnInHelp", false);
        tryCompare(findChild(title, "burnInHelp"), "visible", false);
        mouseClick(title);
        tryCompare(findChild(title, "burnInHelp"), "opened", true);
        mouseClick(content, 400, 20);
        tryCompare(title, "showBurnInHelp", false);
    }

    function toolTipOf(index: int, name: string): Window {
        mouseMove(piece(index, name), 5, 5);
        tryVerify(() => ToolTipWindow.visible && ToolTipWindow.target === piece(index, name));
        return ToolTipWindow;
    }

    function test_tipsSayMore() {
        const markup = "<b>A<br>".repeat(30) + ".mxf";
        queue.add("/clips/" + markup, "failed:encode error");
        queue.setErrorDetail(0, "frame= 10\n<i>Odd</i>\n".repeat(20));
        const tip = toolTipOf(0, "status");
        verify(tip.text.startsWith("frame= 10\n<i>Odd</i>\nframe"));
        compare(findChild(tip, "toolTipText").lineCount, 40);
        verify(tip.height > 400 && tip.y >= 0 && tip.y + tip.height <= tip.screen.height);
        verify(findChild(toolTipOf(0, "name"), "toolTipText").lineCount < 5); // wrapped, but not at each "<br>"
        compare(piece(0, "name").lineCount, 1);
        mouseMove(find("helpButton"), 5, 5);
        tryVerify(() => ToolTipWindow.visible && ToolTipWindow.text === "How Marrowcut works");
    }

    function test_copyError_data(): list<var> {
        return [
            {tag: "right click", open: () => mouseClick(row(0), 60, 10, Qt.RightButton)},
            {tag: "menu key", open: () => keyClick(Qt.Key_Menu)},
            {tag: "Shift+F10", open: () => keyClick(Qt.Key_F10, Qt.ShiftModifier)}
        ];
    }

    function test_copyError(data: var) {
        queue.add("/clips/A001.mxf", "failed:encode error");
        queue.setErrorDetail(0, "frame= 10\nNo space left on device\n");
        queue.add("/clips/A002.mxf");
        mouseClick(row(1), 200, 10, Qt.RightButton); // has nothing to copy
        const menu = findChild(content, "errorMenu");
        verify(!menu.visible);
        piece(0, "retryButton").forceActiveFocus();
        data.open();
        tryCompare(menu, "opened", true);
        keyClick(Qt.Key_Return);
        tryCompare(menu, "visible", false);
        tryCompare(piece(0, "retryButton"), "activeFocus", true);
        const copied = TestDesktop.takeClipboard();
        verify(copied.startsWith("A001.mxf\nFailed: encode error\n\nThe disk is full."), copied);
        verify(copied.endsWith("\nNo space left on device"), copied);
        compare(queue.startCount, 0);
    }

    function test_scrollBarFollowsTheRowsAndTheWindow() {
        queue.add("/clips/0.mxf");
        row(0);
        const list = findChild(content, "jobList");
        const bar = findChild(content, "scrollBar");
        verify(!bar.visible);
        for (let number = 1; number < 2000; ++number)
            queue.add("/clips/" + number + ".mxf");
        tryCompare(bar, "visible", true);
        compare(list.contentY, list.originY - list.topMargin);
        for (const height of [900, 460]) {
            content.height = height;
            awaitLayout();
            verify(list.contentItem.children.length < 80);
        }
        list.positionViewAtEnd();
        tryVerify(() => list.itemAtIndex(1999) !== null);
        for (let index = 2; index < 2000; ++index)
            queue.setStatus(index, "done");
        click("clearButton");
        tryVerify(() => list.count === 2 && !bar.visible);
        compare(list.contentY, list.originY - list.topMargin);
    }

    function test_oneLineAtTheLeadingEdge() {
        queue.add("/clips/two\nlines.mxf");
        queue.add("/clips/\u05d0\u05d1.mxf");
        compare(piece(0, "name").lineCount, 1);
        compare(piece(0, "name").height, piece(1, "name").height);
        compare(piece(1, "name").effectiveHorizontalAlignment, Text.AlignLeft);
    }

    function test_waitingIsSaid() {
        addClips(2);
        queue.setWaiting(1);
        tryVerify(() => row(1).statusToolTip.startsWith("Waiting for another Marrowcut"));
        compare(row(1).accessibleDescription, row(1).statusToolTip);
        compare(row(1).statusLabel, "Queued");
        queue.setWaiting(-1);
        tryVerify(() => row(1).statusToolTip === "");
    }

    function test_secondClickOnGoRemovesNothing() {
        TestDesktop.setDoubleClickTime(60000); // on however slow a machine
        addClips(40);
        const list = find("jobList");
        const go = find("goButton");
        const place = go.mapToItem(content, go.width - 6, go.height - 2);
        mouseClick(content, place.x, place.y);
        compare(queue.startCount, 1);
        queue.stageRunning(true);
        tryVerify(() => find("goButton") === null && list.mapToItem(content, 0, list.height).y > place.y);
        // Where a remove button is now:
        const index = list.indexAt(0, list.contentY + list.mapFromItem(content, place).y);
        const button = piece(index, "removeButton");
        mouseClick(button);
        compare(queue.jobCount, 40);
        TestDesktop.setDoubleClickTime(-1);
        tryCompare(list, "isGuarded", false);
        mouseClick(button);
        compare(queue.jobCount, 39);
        verify(list.isGuarded); // the next row's button is under the pointer
    }

    function test_runningRowStaysInView() {
        addClips(60);
        const list = find("jobList");
        queue.stageRunning(true);
        for (const index of [0, 30]) {
            queue.setStatus(index, "encoding");
            tryVerify(() => list.isInView(index));
            queue.setStatus(index, "done");
        }
        queue.setStatus(31, "encoding");
        tryVerify(() => list.isInView(31));
        list.contentY = list.originY; // the user scrolls away
        queue.setStatus(31, "done");
        queue.setStatus(32, "encoding");
        awaitLayout();
        verify(!list.isInView(32));
        list.positionViewAtIndex(32, ListView.Center); // and back
        queue.setStatus(32, "done");
        queue.setStatus(50, "encoding");
        tryVerify(() => list.isInView(50));
    }

    function test_draggingWithTheMouseScrollsNothing() {
        addClips(60);
        const list = find("jobList");
        const top = list.contentY;
        mouseDrag(list, 200, 120, 0, -100);
        compare(list.contentY, top);
        mouseWheel(list, 200, 50, 0, -120);
        tryVerify(() => list.contentY > top);
    }
}
