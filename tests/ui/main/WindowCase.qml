import QtQuick
import QtTest
import Marrowcut.Main
import Marrowcut.Sheets
import Marrowcut.Staged
import Marrowcut.Style
import Marrowcut.Tests

// A test case with the window's content on a staged engine, empty at the start of each test.
TestCase {
    id: root

    property alias queue: queue
    property alias helpState: helpState
    property Item content

    function find(name: string): Item {
        const item = findChild(content, name);
        return item && item.visible ? item as Item : null;
    }

    // Waits until the engine's state is shown and laid out. A frame that nothing asks for would not come.
    function awaitLayout() {
        tryVerify(() => queue.isShown(), 60000);
        content.Window.window.update();
        waitForRendering(content);
    }

    // The list's row, once it is there.
    function row(index: int): Item {
        awaitLayout();
        const list = findChild(content, "jobList");
        tryVerify(() => list.itemAtIndex(index) !== null);
        awaitLayout();
        return list.itemAtIndex(index);
    }

    // What is shown of a row's piece, else null.
    function piece(index: int, name: string): Item {
        const item = findChild(row(index), name);
        return item && item.visible ? item as Item : null;
    }

    function addClips(count: int) {
        for (let number = 0; number < count; ++number)
            queue.add("/clips/" + number + ".mxf");
        awaitLayout();
        awaitLayout();
    }

    function click(name: string) {
        tryVerify(() => find(name) !== null);
        awaitLayout();
        mouseClick(find(name));
    }

    when: windowShown
    visible: true
    width: 480
    height: 460

    function init() {
        failOnWarning(/./);
        queue.clear();
        tryVerify(() => queue.isShown(), 60000);
        content = createTemporaryObject(contentComponent, root);
        verify(content);
        awaitLayout();
        content.Window.window.requestActivate();
        tryCompare(content.Window, "active", true);
    }

    StagedEngine {
        id: queue
    }

    HelpState {
        id: helpState
    }

    Component {
        id: contentComponent

        ContentView {
            width: root.width
            height: root.height
            queue: root.queue.viewModel
            helpState: root.helpState
            report: TestDesktop.report
        }
    }
}
