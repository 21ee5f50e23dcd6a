// The least that a Qt Core program can do: what the command line's start is measured against.

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    std::puts("empty");
}
