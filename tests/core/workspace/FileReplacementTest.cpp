#include "core/workspace/FileReplacement.h"
#include "../Table.h"
#include "FullDisk.h"
#include "TestFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

// No other file beside one of this name can have its name and six letters more.
const QString longestName(255, 'n');

const QByteArray oldBytes(3000, 'o');
const QByteArray newBytes(9000, 'n');

struct stat StateOf(const QString& path)
{
    struct stat state = {};
    stat(QFile::encodeName(path), &state);
    return state;
}

} // namespace

class FileReplacementTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void Replace_data();
    void Replace() { CheckRow(); }
    void KeepsLinksAndPermissions();
    void NewFileForOwnerAlone();
    void NoFile();
    void FullDiskKeepsOldFile_data();
    void FullDiskKeepsOldFile() { CheckRow(); }
    void KilledAtAnyMoment();

private:
    QString Path(const QString& name) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
};

void FileReplacementTest::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
}

void FileReplacementTest::Replace_data()
{
    // Before it is null where there is no file.
    const Table row([this](const QString& name, const QByteArray& before, const QByteArray& after) {
        if (!before.isNull())
            Write(Path(name), before);
        QCOMPARE(ReplaceFileContents(Path(name), after), FileReplacement::Complete);
        QCOMPARE(Contents(Path(name)), after);
        QCOMPARE(QDir(directory->path()).entryList(QDir::Files), QStringList(name));
    });
    // clang-format off
    row("a new file",                                 "a.txt",     QByteArray(), newBytes);
    row("a longer content",                           "a.txt",     oldBytes,     newBytes);
    row("a shorter content leaves no rest",           "a.txt",     newBytes,     oldBytes);
    row("nothing",                                    "a.txt",     oldBytes,     QByteArray(""));
    row("a new file where none fits beside it",       longestName, QByteArray(), newBytes);
    row("a file that none fits beside",               longestName, oldBytes,     newBytes);
    row("a shorter content where none fits beside it", longestName, newBytes,    oldBytes);
    // clang-format on
}

void FileReplacementTest::KeepsLinksAndPermissions()
{
    Write(Path("target"), oldBytes);
    chmod(QFile::encodeName(Path("target")), 0750);
    if (geteuid() == 0)
        QCOMPARE(chown(QFile::encodeName(Path("target")), 65534, 65534), 0);
    const bool attributes = setxattr(QFile::encodeName(Path("target")), "user.note", "mine", 4, 0) == 0;
    const struct stat before = StateOf(Path("target"));
    QVERIFY(QFile::link("target", Path("link")));

    QCOMPARE(ReplaceFileContents(Path("link"), newBytes), FileReplacement::Complete);
    QVERIFY(QFileInfo(Path("link")).isSymLink());
    QCOMPARE(Contents(Path("target")), newBytes);
    const struct stat after = StateOf(Path("target"));
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
    char note[8] = {};
    if (attributes)
        QCOMPARE(getxattr(QFile::encodeName(Path("target")), "user.note", note, sizeof note), 4);

    QCOMPARE(link(QFile::encodeName(Path("target")), QFile::encodeName(Path("second name"))), 0);
    QCOMPARE(ReplaceFileContents(Path("target"), oldBytes), FileReplacement::Complete);
    QCOMPARE(Contents(Path("second name")), oldBytes);
}

void FileReplacementTest::NewFileForOwnerAlone()
{
    for (const QString& name : {QString("new"), longestName}) {
        QCOMPARE(ReplaceFileContents(Path(name), newBytes, NewFile::ForOwnerAlone), FileReplacement::Complete);
        QCOMPARE(StateOf(Path(name)).st_mode & 0777, mode_t(0600));
    }
    Write(Path("shared"), oldBytes);
    chmod(QFile::encodeName(Path("shared")), 0644);
    QCOMPARE(ReplaceFileContents(Path("shared"), newBytes, NewFile::ForOwnerAlone), FileReplacement::Complete);
    QCOMPARE(StateOf(Path("shared")).st_mode & 0777, mode_t(0644));
}

void FileReplacementTest::NoFile()
{
    QCOMPARE(mkfifo(QFile::encodeName(Path("pipe")), 0600), 0);
    for (const char* name : {"pipe", ".", "missing/a.txt"})
        QCOMPARE(ReplaceFileContents(Path(name), newBytes), FileReplacement::CannotOpen);
    QVERIFY(S_ISFIFO(StateOf(Path("pipe")).st_mode));
}

void FileReplacementTest::FullDiskKeepsOldFile_data()
{
    const Table row([this](const QString& name, bool linked, const QByteArray& bytes) {
        Write(Path(name), oldBytes);
        if (linked)
            QCOMPARE(link(QFile::encodeName(Path(name)), QFile::encodeName(Path("z"))), 0);
        const QStringList files = QDir(directory->path()).entryList(QDir::Files);
        {
            const FullDisk full(oldBytes.size() + 2000);
            QCOMPARE(ReplaceFileContents(Path(name), bytes), FileReplacement::Incomplete);
        }
        QCOMPARE(Contents(Path(name)), oldBytes);
        QCOMPARE(QDir(directory->path()).entryList(QDir::Files), files);
    });
    // clang-format off
    row("a few bytes too many",          "a.txt",     false, newBytes);
    row("many bytes too many",           "a.txt",     false, QByteArray(900000, 'n'));
    row("a file with a second name",     "a.txt",     true,  newBytes);
    row("a file that none fits beside",  longestName, false, newBytes);
    // clang-format on
}

void FileReplacementTest::KilledAtAnyMoment()
{
    const QByteArray contents[] = {QByteArray(400000, 'a'), QByteArray(700000, 'b')};
    const QString path = Path("document.txt");
    Write(path, contents[0]);
    int changes = 0;
    for (int kill = 0; kill < 200; ++kill) {
        const QByteArray before = Contents(path);
        const pid_t writer = fork();
        if (writer == 0) {
            for (unsigned i = kill;; ++i)
                ReplaceFileContents(path, contents[i % 2]);
        }
        QVERIFY(writer > 0);
        usleep(QRandomGenerator::global()->bounded(30000));
        QCOMPARE(::kill(writer, SIGKILL), 0);
        QCOMPARE(waitpid(writer, nullptr, 0), writer);
        const QByteArray after = Contents(path);
        QVERIFY2(after == contents[0] || after == contents[1], QByteArray::number(after.size()));
        changes += after != before;
    }
    QVERIFY2(changes > 20, "the writer was always killed before it wrote");
}

QTEST_APPLESS_MAIN(FileReplacementTest)
#include "FileReplacementTest.moc"
