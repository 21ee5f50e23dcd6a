import QtQuick
import Marrowcut.Main
import Marrowcut.Sheets
import Marrowcut.Shell
import Marrowcut.Staged
import Marrowcut.Style

// The window as the application has it, on a staged engine, and the states of it that are worth a look.
Window {
    id: root

    required property StagedEngine queue
    required property DiagnosticsReport report
    readonly property alias helpState: helpState
    readonly property alias menuBarHeight: menuBar.height
    // Steps from an empty queue and a window as it starts.
    readonly property var steps: ({
            "empty": [],
            "tiny": [chooseTiny],
            "tiny-queued": [queueThree, chooseTiny],
            "queued": [queueThree],
            "advanced": [queueThree, () => press("advancedButton")],
            "burn-in-help": [queueThree, () => press("advancedButton"), () => press("burnInTitle")],
            "drag": [queueThree],
            "running": [run],
            "every-form": [everyForm],
            "finished": [finish],
            "error-menu": [finish, openErrorMenu],
            "many": [queueMany],
            "quitting": [run, () => question.shown = true],
            "help": [finish, () => helpState.showHelp = true],
            "about": [finish, () => helpState.showAbout = true],
            "report": [finish, () => helpState.showDiagnostics = true]
        })
    readonly property list<string> states: Object.keys(steps)

    function add(name: string, status = "queued", progress = 0, eta = -1) {
        queue.add("/media/card 12/Interview Day 1/" + name, status, progress, eta);
    }

    function queueThree() {
        for (const name of ["A001.mxf", "A002.mxf", "B-roll.mov"])
            add(name);
        queue.setSelected(1, false);
    }

    function run() {
        add("A001.mxf", "done", 1);
        add("A002.mxf", "skipped");
        add("A003.mxf", "failed:encode error", 0.63);
        add("A004.mxf", "encoding", 0.4, 90);
        add("A005.mxf");
        queue.stageRunning(true);
    }

    function finish() {
        add("A001.mxf", "done", 1);
        add("A002.mxf", "failed:could not read metadata");
        add("A003.mxf", "skipped");
    }

    function everyForm() {
        const name = "A clip with a name that is far too long for a window of this size, take %1.MXF";
        add(name.arg(12));
        add(name.arg(13), "encoding", 0.1, 4000);
        add(name.arg(14), "failed:could not read metadata");
        add("A001.mxf", "probing");
        run();
        queue.stageRunning(false);
    }

    function queueMany() {
        for (let number = 1; number <= 200; ++number)
            add(`A${String(number).padStart(3, "0")}.mxf`);
    }

    function chooseTiny() {
        queue.viewModel.choosePreset(2);
    }

    function find(name: string, item: Item): Item {
        if (item.objectName === name)
            return item;
        return Array.from(item.children).reduce((found, child) => found ?? find(name, child), null);
    }

    function press(name: string) {
        (find(name, root.contentItem) as BorderlessButton).clicked();
    }

    function openErrorMenu() {
        const list = find("jobList", root.contentItem) as JobRows;
        list.currentIndex = 1;
        (list.currentItem as JobRow).requestMenu(Qt.point(12, list.currentItem.height));
    }

    title: "Marrowcut"
    color: Theme.window
    width: 480
    height: 460
    visible: true

    HelpState {
        id: helpState
    }

    ContentView {
        anchors.fill: parent
        queue: root.queue.viewModel
        helpState: root.helpState
        report: root.report

        menuBar: MainMenuBar {
            id: menuBar

            width: root.width
        }
    }

    QuitQuestion {
        id: question

        shown: false
    }
}
