// Every target with a fixed number of inputs from a fixed seed: words of the real formats, mixed with
// noise. The long search is libFuzzer's (libfuzzer.cpp).

#include "targets.h"

#include <QByteArray>
#include <QList>

#include <cstdio>
#include <random>

namespace
{

constexpr int inputsPerTarget = 20000;

const QList<QByteArray> words = {"frame=  93 ",
                                 "time=",
                                 "00:00:04.00",
                                 "-00:00:00.02",
                                 "N/A",
                                 " speed= 1.5x",
                                 "bitrate=524.3kbits/s",
                                 "\r",
                                 "\n",
                                 "\r\n",
                                 "30000/1001",
                                 "25/1",
                                 "0/0",
                                 "01:02:03:04",
                                 "01:00:00;00",
                                 "99999999999999999999",
                                 "1e308",
                                 "-1",
                                 "12.345000",
                                 "2024-03-05T14:22:10.000000Z",
                                 "T",
                                 "Z",
                                 ".",
                                 ":",
                                 "/",
                                 "'",
                                 "\\",
                                 "%",
                                 "%{pts}",
                                 "\xFF",
                                 "\xC3\xA9",
                                 "\xF0\x9F\x8E\xAC",
                                 QByteArray(1, '\0'),
                                 " ",
                                 "\t",
                                 "inf",
                                 "nan",
                                 "x",
                                 "clip.mxf",
                                 "#EXTM3U\n#EXT-X-VERSION:3\n#EXTINF:4,\n",
                                 "ffconcat version 1.0\nfile 'part_0000.mp4'\n"};

QByteArray randomInput(std::mt19937 &random)
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

int main()
{
    for (const auto &target : marrowcut::fuzz::targets) {
        std::mt19937 random(20240305);
        for (int count = 0; count < inputsPerTarget; ++count)
            target.read(randomInput(random));
        std::printf("%s: %d inputs\n", target.name, inputsPerTarget);
    }
}
