#include "reporter.h"

#include "console_text.h"
#include "refusal.h"

#include <QTextStream>

namespace marrowcut::cli
{

void Reporter::refused(const RefusedItem &item)
{
    QTextStream(stderr) << "marrowcut-cli: " << printable(item.path) << ": " << refusalText(item.reason)
                        << '\n';
}

} // namespace marrowcut::cli
