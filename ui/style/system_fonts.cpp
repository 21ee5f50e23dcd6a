#include "ui/style/system_fonts.h"

#include <QFontDatabase>

namespace marrowcut
{

QString SystemFonts::monospaced() const
{
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

} // namespace marrowcut
