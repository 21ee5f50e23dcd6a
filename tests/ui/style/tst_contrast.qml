import QtQuick
import QtQuick.Templates as T
import QtTest
import Marrowcut.Style

TestCase {
    name: "Contrast"
    when: windowShown
    visible: true
    width: 400
    height: 100

    Rectangle {
        id: scene

        anchors.fill: parent
        color: Theme.window

        PushButton {
            id: button

            x: 20
            y: 20
            text: "Go"
            highlighted: true
        }

        SegmentedPicker {
            id: picker

            x: 80
            y: 20
            width: 304
            model: ["one", "two", "three"]
            currentIndex: 0
        }

        ScrollBar {
            id: bar

            x: 20
            y: 60
            height: 30
            size: 1
            policy: T.ScrollBar.AlwaysOn
        }
    }

    function luminance(shade: color): real {
        const linear = part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        return 0.2126 * linear(shade.r) + 0.7152 * linear(shade.g) + 0.0722 * linear(shade.b);
    }

    function contrast(one: color, other: color): real {
        const [low, high] = [luminance(one), luminance(other)].sort((a, b) => a - b);
        return (high + 0.05) / (low + 0.05);
    }

    // An accent colour of the desktop, whatever it is, is made legible.
    function test_accentIsLegible() {
        for (const ground of ["#f5f5f7", "#333338", "#ffffff", "#18181a"].map(name => Qt.color(name))) {
            for (const accent of ["#ffff00", "#000000", "#ffffff", "#00c000", "#3584e4", "#808080"])
                verify(contrast(DesktopAppearance.legible(accent, ground), ground) >= 4.49, accent + " on " + ground);
        }
        compare(DesktopAppearance.legible("#0a5dcc", "#ffffff"), Qt.color("#0a5dcc")); // as it is, where that will do
    }

    function cleanup() {
        DesktopAppearance.choice = DesktopAppearance.Desktop;
    }

    function test_textCanBeRead_data() {
        return [
            {tag: "light", choice: DesktopAppearance.Light},
            {tag: "dark", choice: DesktopAppearance.Dark}
        ];
    }

    function test_textCanBeRead(data) {
        DesktopAppearance.choice = data.choice;
        compare(Theme.dark, data.tag === "dark");
        const pairs = [["accentText", "accentFill"], ["primary", "track"], ["primary", "segmentFill"], ["primary", "controlHover"], ["primary", "controlPressed"]];
        for (const text of ["primary", "secondary", "tertiary", "accent", "success", "failure"])
            pairs.push(...["window", "base", "controlFill"].map(ground => [text, ground]));
        const lines = ["window", "base", "controlFill", "track"].map(ground => ["outline", ground]);
        for (const [limit, of] of [[4.5, pairs], [3, lines]]) {
            for (const [shade, ground] of of) {
                const ratio = contrast(Theme[shade], Theme[ground]);
                verify(ratio >= limit, shade + " on " + ground + ": " + ratio);
            }
        }
    }

    function test_edgesAreSeen_data() {
        return test_textCanBeRead_data();
    }

    // What is drawn of controls, measured in a picture of them.
    function test_edgesAreSeen(data) {
        DesktopAppearance.choice = data.choice;
        const segment = picker.children[1].children[2];
        button.forceActiveFocus(Qt.TabFocusReason);
        mouseMove(segment, 5, 5);
        tryCompare(segment, "hovered", true);
        waitForRendering(scene);
        const picture = grabImage(scene);
        const middle = item => item.mapToItem(scene, 0, item.height / 2);
        const at = (item, x) => picture.pixel(middle(item).x + x, middle(item).y);

        compare(at(button, -1), Theme.window); // the gap
        verify(contrast(at(button, -3), at(button, -1)) >= 3, "focus ring");
        for (const [item, name] of [[picker.children[1].children[0], "selected"], [segment, "hovered"]])
            verify(contrast(at(item, 0), Theme.track) >= 3, name);
        verify(contrast(at(bar, bar.width / 2), at(bar, 0)) >= 3, "scroll thumb");
    }
}
