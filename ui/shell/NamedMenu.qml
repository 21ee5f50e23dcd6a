import QtQuick
import QtQuick.Controls

// A menu whose items are read without the mark of the underlined letter.
Menu {
    delegate: MenuItem {
        Accessible.name: text.replace("&", "")
    }
}
