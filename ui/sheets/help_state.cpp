#include "ui/sheets/help_state.h"

namespace marrowcut
{

HelpState::HelpState(QObject *parent)
    : QObject(parent)
{
}

void HelpState::setShowHelp(bool show)
{
    set(m_showHelp, show, &HelpState::showHelpChanged);
}

void HelpState::setShowAbout(bool show)
{
    set(m_showAbout, show, &HelpState::showAboutChanged);
}

void HelpState::setShowDiagnostics(bool show)
{
    set(m_showDiagnostics, show, &HelpState::showDiagnosticsChanged);
}

void HelpState::set(bool &flag, bool value, void (HelpState::*changed)())
{
    if (flag == value)
        return;
    flag = value;
    Q_EMIT(this->*changed)();
}

} // namespace marrowcut
