// SPDX-License-Identifier: MIT
// Gives a fuzz target every file of the folders that are named, in the order of their names: a replay of what fuzzing
// has found, the same each time and with any compiler.
#include <QDir>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    int count = 0;
    for (int argument = 1; argument < argc; ++argument) {
        const QDir folder(QString::fromLocal8Bit(argv[argument]));
        for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "%s cannot be read\n", qPrintable(file.fileName()));
                return 1;
            }
            const QByteArray content = file.readAll();
            std::printf("%s\n", qPrintable(name));
            std::fflush(stdout);
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.constData()),
                                   static_cast<std::size_t>(content.size()));
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
