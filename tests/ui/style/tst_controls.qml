import QtQuick
import QtTest
import Marrowcut.Style

Item {
    id: scene

    width: 400
    height: 300

    SegmentedPicker {
        id: picker

        property list<int> chosen

        model: ["standard", "smaller", "tiny"]
        currentIndex: 0
        onActivated: index => chosen.push(index)
    }

    CheckMark {
        id: mark

        y: 60
        checked: false
        onToggled: ++clicks

        property int clicks: 0
    }

    TestCase {
        name: "Controls"
        when: windowShown

        function segment(index: int): Item {
            const row = picker.children[1];
            return row.children[index];
        }

        function shown(): string {
            return [0, 1, 2].map(index => segment(index).checked).join();
        }

        function init() {
            picker.currentIndex = 0;
            picker.chosen = [];
        }

        function test_pickerShowsTheModelOnly() {
            mouseClick(segment(2));
            compare(picker.chosen.join(), "2");
            compare(shown(), "true,false,false");
            picker.currentIndex = 1;
            compare(shown(), "false,true,false");
            mouseClick(segment(1));
            compare(shown(), "false,true,false");
        }

        function test_pickerByKeyboard() {
            segment(0).forceActiveFocus();
            keyClick(Qt.Key_Left);
            compare(picker.chosen.length, 0);
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Right);
            compare(picker.chosen.join(), "1,2");
            verify(segment(2).activeFocus);
        }

        function test_markShowsTheModelOnly() {
            mouseClick(mark);
            mark.forceActiveFocus();
            keyClick(Qt.Key_Space);
            compare(mark.clicks, 2);
            verify(!mark.checked);
            mark.checked = true;
            mouseClick(mark);
            compare(mark.clicks, 3);
            verify(mark.checked);
        }
    }
}
