import QtQuick
import QtTest
import Marrowcut.Style
import Marrowcut.Tests

WindowCase {
    id: test

    readonly property var files: [Qt.resolvedUrl("../../../samples/A001C001.mxf"), Qt.resolvedUrl("../../../samples/A002C001.mov")]

    name: "Window"

    function test_controlBar_data(): list<var> {
        return [
            {tag: "one queued", jobs: ["queued"], selectAll: "Select None", clear: false, go: true, done: "0 of 1 done", bar: 0},
            {tag: "one unticked", jobs: ["queued", "unticked"], selectAll: "Select All", clear: false, go: true, done: "0 of 2 done", bar: 0},
            {tag: "all unticked", jobs: ["unticked"], selectAll: "Select All", clear: false, go: false, done: "0 of 1 done", bar: 0},
            {tag: "finished", jobs: ["done", "failed:encode error"], selectAll: "", clear: true, go: false, done: "1 of 2 done", bar: 1},
            {tag: "in the run", jobs: ["done", "encoding"], selectAll: "", clear: true, go: false, done: "1 of 2 done", bar: 0.75},
            {tag: "half", jobs: ["skipped", "unticked"], selectAll: "Select All", clear: true, go: false, done: "1 of 2 done", bar: 0.5}
        ];
    }

    function test_controlBar(data: var) {
        data.jobs.forEach((status, index) => {
            const kind = status === "unticked" ? "queued" : status;
            queue.add("/clips/" + index + ".mxf", kind, status === "encoding" ? 0.5 : 0);
            queue.setSelected(index, status !== "unticked");
        });
        tryVerify(() => find("overallBar") !== null);
        compare(find("selectAllButton") ? find("selectAllButton").text : "", data.selectAll);
        compare(find("clearButton") !== null, data.clear);
        compare(find("goButton") !== null, data.go);
        compare(find("doneText").text, data.done);
        compare(find("overallBar").value, data.bar);
        compare(find("outputPath").text, "/clips/marrowcut_proxies");
        queue.stageRunning(true);
        tryVerify(() => find("selectAllButton") === null && find("clearButton") === null && find("goButton") === null);
        verify(find("overallBar"));
    }

    function test_controlBarActs() {
        queue.add("/clips/A001.mxf");
        queue.add("/clips/A002.mxf");
        queue.setSelected(0, false);
        click("selectAllButton");
        tryCompare(find("selectAllButton"), "text", "Select None");
        verify(queue.isSelected(0) && queue.isSelected(1));
        click("goButton");
        compare(queue.startCount, 1);
        click("revealButton");
        compare(queue.revealed, [Qt.url("file:///clips/marrowcut_proxies")]);
    }

    function test_returnIsGoWhereItIsShown() {
        queue.add("/clips/A001.mxf");
        const link = findChild(content, "creditLink");
        for (const item of [piece(0, "includeCheck"), link]) {
            item.forceActiveFocus();
            keyClick(Qt.Key_Return);
        }
        compare(queue.startCount, 2);
        compare(TestDesktop.openedLinks, []);
        queue.setSelected(0, false);
        tryVerify(() => find("goButton") === null);
        keyClick(Qt.Key_Return);
        queue.setSelected(0, true);
        queue.stageRunning(true);
        tryVerify(() => find("selectAllButton") === null);
        keyClick(Qt.Key_Return);
        compare(queue.startCount, 2);
    }

    function test_presetPicker() {
        verify(!find("overallBar"));
        const picker = find("presetPicker");
        const standardHeight = picker.parent.height;
        mouseClick(picker, picker.width - 20);
        tryCompare(picker, "currentIndex", 2);
        compare(queue.viewModel.presetIndex, 2);
        tryVerify(() => picker.parent.height > standardHeight); // a longer description, wrapped
        queue.stageRunning(true);
        mouseClick(picker, 20);
        tryCompare(picker, "currentIndex", 0);
        tryCompare(picker.parent, "height", standardHeight);
        keyClick(Qt.Key_Left); // there is nothing left of the first
        keyClick(Qt.Key_Right);
        tryCompare(picker, "currentIndex", 1);
    }

    function test_helpButton() {
        click("helpButton");
        compare(helpState.showHelp, true);
        helpState.showHelp = false;
    }

    function test_pasteAddsCopiedFiles() {
        TestDesktop.copyFiles([files[1], Qt.url("https://quorvane.example/c.mov")]);
        keyClick(Qt.Key_V, Qt.ControlModifier);
        tryVerify(() => find("jobList") !== null && find("jobList").count === 1);
        compare(queue.fileName(0), "A002C001.mov");
    }

    function test_missingToolIsSaidUntilItIsThere() {
        verify(!find("missingTools"));
        queue.add("/clips/A001.mxf");
        queue.missingTools = ["ffprobe is missing: it was expected at /opt/ffprobe."];
        click("goButton");
        tryVerify(() => find("missingTools") !== null);
        compare(find("missingTools").text, queue.missingTools[0]);
        compare(find("missingTools").color, Theme.failure);
        queue.missingTools = [];
        click("goButton");
        tryVerify(() => find("missingTools") === null);
    }

    function test_barKeepsItsHeightAndButtonsTheirWidth() {
        queue.add("/clips/A001.mxf");
        tryVerify(() => find("selectAllButton") !== null);
        const bar = find("selectAllButton").parent;
        const before = [bar.height, find("selectAllButton").width];
        click("selectAllButton");
        tryVerify(() => find("goButton") === null);
        awaitLayout();
        compare([bar.height, find("selectAllButton").width], before);
    }
}
