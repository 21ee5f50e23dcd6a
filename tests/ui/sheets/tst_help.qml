import QtQuick
import QtTest
import Marrowcut.Sheets
import Marrowcut.Style
import Marrowcut.Tests

Item {
    id: scene

    width: 640
    height: 480

    BurnInMockup {
        id: mockup

        y: 40
        width: 400
    }

    PlainLinkText {
        id: link

        title: "a **plain** title"
        url: "https://example.org/page"
    }

    TestCase {
        name: "Help"
        when: windowShown

        function lines() {
            const found = [];
            const search = item => item.explanation ? found.push(item) : Array.from(item.children).forEach(search);
            search(mockup);
            return found;
        }

        function init() {
            mouseMove(scene, 620, 460);
        }

        function test_hoverExplainsOneLine() {
            const all = lines();
            const displays = ["CAM001.MXF", "SOURCE TC  01:12:04:18", "CLIP ELAPSED  00:00:14:02", "FILE DATE  2026-03-11 09:41:02"];
            const explanations = ["filename", "internal camera timecode", "time elapsed in this clip", "time/date file was created"];
            compare(all.map(line => line.text), displays);
            for (let i = 0; i < all.length; ++i) {
                mouseMove(all[i], 4, all[i].height / 2);
                tryCompare(all[i], "isHovering", true);
                compare(all.map(line => line.text), displays.map((text, n) => n === i ? explanations[i] : text));
                // also where the explanation is the shorter text
                wait(0);
                verify(all[i].isHovering);
            }
            mouseMove(scene, 620, 460);
            tryCompare(all[3], "isHovering", false);
            compare(all.map(line => line.text), displays);
        }

        function test_linkOpensOnce_data() {
            return [
                {tag: "click", act: () => mouseClick(link)},
                {tag: "Return", act: () => keyClick(Qt.Key_Return)},
                {tag: "Enter", act: () => keyClick(Qt.Key_Enter)},
                {tag: "Space", act: () => keyClick(Qt.Key_Space)}
            ];
        }

        function test_linkOpensOnce(data) {
            compare(link.text, "a **plain** title");
            link.forceActiveFocus();
            const before = TestDesktop.openedLinks.length;
            data.act();
            compare(TestDesktop.openedLinks.length, before + 1);
            compare(TestDesktop.openedLinks[before], "https://example.org/page");
        }
    }
}
