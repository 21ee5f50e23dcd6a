#include "platform/monospaced_font.h"

#include <QFile>

#include <fontconfig/fontconfig.h>

#include <memory>

namespace marrowcut
{

QString monospacedFontFile()
{
    using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;

    const Pattern wanted(
        FcNameParse(reinterpret_cast<const FcChar8 *>("DejaVu Sans Mono,monospace:style=Book")),
        &FcPatternDestroy);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());

    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(nullptr, wanted.get(), &result), &FcPatternDestroy);
    FcChar8 *file = nullptr; // owned by the match
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch)
        return QString();
    return QFile::decodeName(reinterpret_cast<const char *>(file));
}

} // namespace marrowcut
