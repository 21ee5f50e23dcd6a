import QtQuick
import QtTest
import Marrowcut.Style

TestCase {
    name: "Contrast"

    function luminance(shade: color): real {
        const linear = part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        return 0.2126 * linear(shade.r) + 0.7152 * linear(shade.g) + 0.0722 * linear(shade.b);
    }

    function contrast(one: color, other: color): real {
        const [low, high] = [luminance(one), luminance(other)].sort((a, b) => a - b);
        return (high + 0.05) / (low + 0.05);
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
        for (const [text, ground] of pairs) {
            const ratio = contrast(Theme[text], Theme[ground]);
            verify(ratio >= 4.5, text + " on " + ground + ": " + ratio);
        }
    }
}
