// Runs a door over files instead of new inputs: the committed corpus as a test, or a single finding.
//
//   DOOR [FILE | DIRECTORY...]
#include <QDirIterator>
#include <QFile>

#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size);

namespace {

bool RunFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const quint8*>(bytes.constData()), static_cast<size_t>(bytes.size()));
    return true;
}

int RunDirectory(const QString& path)
{
    int files = 0;
    for (QDirIterator entry(path, QDir::Files); entry.hasNext(); ++files) {
        if (!RunFile(entry.next()))
            return 0;
    }
    return files;
}

} // namespace

int main(int count, char** arguments)
{
    int files = 0;
    for (int i = 1; i < count; ++i) {
        const QString path = QFile::decodeName(arguments[i]);
        const int read = QFileInfo(path).isDir() ? RunDirectory(path) : RunFile(path) ? 1 : 0;
        if (read == 0) {
            std::fprintf(stderr, "Nothing could be read: %s\n", arguments[i]);
            return 1;
        }
        files += read;
    }
    std::printf("%d inputs\n", files);
    return files == 0 ? 1 : 0;
}
