// Every target with a fixed number of inputs from a fixed seed: words of the real formats, mixed with
// noise. The long search is libFuzzer's (libfuzzer.cpp).

#include "targets.h"

#include <QByteArray>
#include <QFile>
#include <QList>

#include <cstdio>
#include <random>

namespace
{

constexpr int inputsPerTarget = 20000;

/// libFuzzer's dictionary: a quoted word on each line, with \\, \" and \xHH.
QList<QByteArray> readWords(const char *path)
{
    QList<QByteArray> words;
    QFile file(QString::fromLocal8Bit(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", path);
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (!line.startsWith('"'))
            continue;
        QByteArray word;
        for (qsizetype at = 1; at < line.size() - 1; ++at) {
            if (line[at] == '\\' && line[++at] == 'x') {
                word += QByteArray::fromHex(line.mid(at + 1, 2));
                at += 2;
            } else {
                word += line[at];
            }
        }
        words.append(word);
    }
    return words;
}

QByteArray randomInput(const QList<QByteArray> &words, std::mt19937 &random)
{
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    QByteArray input;
    for (int left = below(24); left > 0; --left) {
        if (below(4) == 0)
            input.append(char(below(256)));
        else
            input.append(words[below(int(words.size()))]);
    }
    return input;
}

} // namespace

int main(int, char *argv[])
{
    const QList<QByteArray> words = readWords(argv[1]);
    for (const auto &target : marrowcut::fuzz::targets) {
        std::mt19937 random(20240305);
        for (int count = 0; count < inputsPerTarget; ++count)
            target.read(randomInput(words, random));
        std::printf("%s: %d inputs\n", target.name, inputsPerTarget);
    }
}
