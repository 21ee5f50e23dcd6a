import QtQuick
import QtQuick.Controls

// A menu that stands out from the window in dark too. Its items can be pressed by assistive technology.
Menu {
    padding: 4

    delegate: MenuItem {
        id: item

        Accessible.onPressAction: {
            item.menu.dismiss();
            item.action.trigger();
        }
    }

    background: Rectangle {
        implicitWidth: 200
        radius: 6
        color: Theme.controlFill
        border.color: Theme.controlBorder
    }
}
