import QtQuick.Templates as T

// Between the groups of a NamedMenu.
T.MenuSeparator {
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    verticalPadding: 4
    horizontalPadding: 6
    contentItem: Divider {}
}
