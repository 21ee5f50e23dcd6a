// Stands in for ffmpeg and ffprobe where a test needs what the real tools don't do on demand.
//
// Follows the script named by MARROWCUT_STAND_IN_SCRIPT, line by line:
//   when A B ...     the lines up to "end" only if the command line contains all of these words
//   end
//   out TEXT         to standard output; \r, \n, \\ and \xHH are bytes
//   err TEXT         to standard error
//   flood N          N bytes in lines to both streams, in turns
//   endless N        N bytes without a line break to standard error
//   close-err        closes standard error
//   write-output     writes an MP4 without any content at the last argument
//   write-empty      makes an empty file there
//   write-torn       writes one there that breaks off
//   wait-for FILE    until that file exists
//   touch FILE       makes that file
//   note FILE        appends the command line to that file, one argument per line, then an empty line
//   pid FILE         writes its process number to that file
//   stdin            copies standard input to standard error
//   ignore-term
//   signal N         dies by that signal
//   exit N
// At the end of the script it exits with 0.

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace
{

std::vector<std::string> commandLine;

std::string unescaped(const std::string &text)
{
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\\' || at + 1 == text.size()) {
            bytes += text[at];
            continue;
        }
        const char kind = text[++at];
        if (kind == 'x') {
            bytes += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
            at += 2;
        } else {
            bytes += kind == 'r' ? '\r' : kind == 'n' ? '\n' : kind;
        }
    }
    return bytes;
}

void put(int descriptor, const std::string &bytes)
{
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = write(descriptor, bytes.data() + written, bytes.size() - written);
        if (count <= 0)
            std::_Exit(98);
        written += static_cast<std::size_t>(count);
    }
}

void flood(const std::string &count)
{
    const std::string block(1023, 'x');
    for (long left = std::stol(count); left > 0; left -= 1024) {
        put(STDOUT_FILENO, block + '\n');
        put(STDERR_FILENO, block + '\n');
    }
}

void note(const std::string &file)
{
    std::ofstream out(file, std::ios::app);
    for (const std::string &argument : commandLine)
        out << argument << '\n';
    out << '\n';
}

void waitFor(const std::string &file)
{
    while (!std::filesystem::exists(file))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

bool matches(const std::string &words)
{
    std::string all;
    for (const std::string &argument : commandLine)
        all += argument + ' ';
    std::istringstream in(words);
    for (std::string word; in >> word;) {
        if (all.find(word) == std::string::npos)
            return false;
    }
    return true;
}

const std::map<std::string, std::function<void(const std::string &)>> operations = {
    {"out", [](const std::string &text) { put(STDOUT_FILENO, unescaped(text)); }},
    {"err", [](const std::string &text) { put(STDERR_FILENO, unescaped(text)); }},
    {"flood", flood},
    {"endless", [](const std::string &count) { put(STDERR_FILENO, std::string(std::stoul(count), 'x')); }},
    {"close-err", [](const std::string &) { close(STDERR_FILENO); }},
    {"write-output",
     [](const std::string &) {
         std::ofstream(commandLine.back()) << std::string("\0\0\0\x08"
                                                          "ftyp\0\0\0\x08"
                                                          "moov",
                                                          16);
     }},
    {"write-empty", [](const std::string &) { std::ofstream out(commandLine.back()); }},
    {"write-torn",
     [](const std::string &) {
         std::ofstream(commandLine.back()) << std::string("\0\0\0\x08"
                                                          "ftyp\0\0\0\x09"
                                                          "moov",
                                                          16);
     }},
    {"wait-for", waitFor},
    {"touch", [](const std::string &file) { std::ofstream out(file); }},
    {"note", note},
    {"pid", [](const std::string &file) { std::ofstream(file) << getpid(); }},
    {"stdin", [](const std::string &) { std::cerr << std::cin.rdbuf() << std::flush; }},
    {"ignore-term", [](const std::string &) { std::signal(SIGTERM, SIG_IGN); }},
    {"signal", [](const std::string &number) { std::raise(std::stoi(number)); }},
    {"exit", [](const std::string &status) { std::_Exit(std::stoi(status)); }},
};

} // namespace

int main(int argc, char *argv[])
{
    commandLine.assign(argv, argv + argc);
    const char *script = std::getenv("MARROWCUT_STAND_IN_SCRIPT");
    std::ifstream in(script ? script : "");
    bool skipping = false;
    for (std::string line; std::getline(in, line);) {
        const std::size_t space = line.find(' ');
        const std::string word = line.substr(0, space);
        const std::string rest = space == std::string::npos ? std::string() : line.substr(space + 1);
        if (word == "end")
            skipping = false;
        else if (word == "when")
            skipping = !matches(rest);
        else if (!skipping && !word.empty())
            operations.at(word)(rest);
    }
    return 0;
}
