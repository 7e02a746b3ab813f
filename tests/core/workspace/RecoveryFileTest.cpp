#include "core/workspace/RecoveryFile.h"
#include "../Table.h"
#include "FullDisk.h"
#include "TestFiles.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString abandonedName = "Quellbrook-01234567-89ab-cdef-0123-456789abcdef.recovery";

void SetAge(const QString& path, qint64 seconds)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds), QFileDevice::FileModificationTime));
}

QByteArrayList Take(const QString& directory, bool taken = true)
{
    QByteArrayList texts;
    TakeAbandonedTexts(directory, [&](const AbandonedText& left) {
        texts.append(left.text);
        return taken;
    });
    return texts;
}

// A process that writes two texts in turn until it is killed.
pid_t Writer(const QString& directory, const QByteArray& first, const QByteArray& second)
{
    const pid_t writer = fork();
    if (writer == 0) {
        RecoveryFile file(directory);
        for (;;) {
            file.Write(first);
            file.Write(second);
        }
    }
    return writer;
}

void Kill(pid_t process)
{
    QCOMPARE(kill(process, SIGKILL), 0);
    QCOMPARE(waitpid(process, nullptr, 0), process);
}

} // namespace

class RecoveryFileTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void KeptWhileItsOwnerLives();
    void OldestFirst();
    void NotOurs_data();
    void NotOurs() { CheckRow(); }
    void Draft_data();
    void Draft() { CheckRow(); }
    void NotWritten();
    void FullDiskKeepsOldText();
    void KilledAtAnyMoment();
    void OneOfManyTakes();

private:
    QString Path(const QString& name = abandonedName) const { return directory->filePath(name); }
    QStringList Files() const { return QDir(directory->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

    std::unique_ptr<QTemporaryDir> directory;
};

void RecoveryFileTest::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
}

void RecoveryFileTest::KeptWhileItsOwnerLives()
{
    {
        RecoveryFile file(directory->path());
        QCOMPARE(Files(), QStringList());
        for (const char* text : {"first", "second"}) {
            QVERIFY(file.Write(text));
            QCOMPARE(Files().size(), 1);
            QCOMPARE(Contents(Path(Files().first())), text);
            QCOMPARE(QFile::permissions(Path(Files().first())) & 0x0fff, QFile::ReadUser | QFile::WriteUser);
            QCOMPARE(Take(directory->path()), QByteArrayList());
        }
        file.Remove();
        QCOMPARE(Files(), QStringList());
        QVERIFY(file.Write("third"));
    }
    QCOMPARE(Take(directory->path(), false), (QByteArrayList{"third"}));
    QCOMPARE(Take(directory->path()), (QByteArrayList{"third"}));
    QCOMPARE(Files(), QStringList());
}

void RecoveryFileTest::OldestFirst()
{
    for (const int age : {10, 3000, 200}) {
        const QString path =
            Path(QString(abandonedName).replace("01234567", QString("%1").arg(age, 8, 10, QChar('0'))));
        Write(path, QByteArray::number(age));
        SetAge(path, age);
    }
    QList<int> ages;
    TakeAbandonedTexts(directory->path(), [&](const AbandonedText& left) {
        const qint64 age = left.changed.secsTo(QDateTime::currentDateTime());
        ages.append(qAbs(age - left.text.toInt()) < 5 ? left.text.toInt() : -1);
        return true;
    });
    QCOMPARE(ages, (QList{3000, 200, 10}));
}

void RecoveryFileTest::NotOurs_data()
{
    const Table row([this](const QString& name, const QString& kind) {
        const QByteArray path = QFile::encodeName(Path(name));
        Write(Path("other"), "text");
        if (kind == "directory")
            QCOMPARE(mkdir(path, 0700), 0);
        else if (kind == "pipe")
            QCOMPARE(mkfifo(path, 0600), 0);
        else if (kind == "link")
            QCOMPARE(symlink("other", path), 0);
        else if (kind == "second name")
            QCOMPARE(link(QFile::encodeName(Path("other")), path), 0);
        else
            Write(Path(name), kind == "bytes" ? "\xff\xfe" : "text");
        if (kind == "huge")
            QCOMPARE(truncate(path, largestRecoveryText + 1), 0);
        if (kind == "owner" && chown(path, 65534, 65534) != 0)
            QSKIP("only root can give files away");
        const QStringList before = Files();
        QCOMPARE(Take(directory->path()), QByteArrayList());
        QCOMPARE(Files(), before);
        QCOMPARE(Contents(Path("other")), "text");
    });
    // clang-format off
    row("a directory",              abandonedName,                "directory");
    row("a pipe",                   abandonedName,                "pipe");
    row("a link to a file",         abandonedName,                "link");
    row("a file with a second name", abandonedName,               "second name");
    row("bytes that are no UTF-8",  abandonedName,                "bytes");
    row("a huge file",              abandonedName,                "huge");
    row("another user's file",      abandonedName,                "owner");
    row("another name",             "Quellbrook-notes.recovery",  "text");
    row("a longer name",            abandonedName + ".bak",       "text");
    // clang-format on
}

void RecoveryFileTest::Draft_data()
{
    const Table row([this](int seconds, bool locked, bool stays) {
        Write(Path(abandonedName + ".new"), "half a te");
        SetAge(Path(abandonedName + ".new"), seconds);
        QFile owner(Path(abandonedName + ".new"));
        QVERIFY(owner.open(QIODevice::ReadOnly));
        if (locked)
            QCOMPARE(flock(owner.handle(), LOCK_EX), 0);
        QCOMPARE(Take(directory->path()), QByteArrayList());
        QCOMPARE(!Files().isEmpty(), stays);
    });
    row("one that has just been made may be somebody's", 2, false, true);
    row("an old one is cleared away", 600, false, false);
    row("unless a slow disk still takes it", 600, true, true);
}

void RecoveryFileTest::NotWritten()
{
    QVERIFY(!RecoveryFile(Path("missing")).Write("text"));
    QVERIFY(!RecoveryFile(directory->path()).Write(QByteArray(largestRecoveryText + 1, 't')));
    RecoveryFile(directory->path()).Remove();
    QCOMPARE(Files(), QStringList());
}

void RecoveryFileTest::FullDiskKeepsOldText()
{
    RecoveryFile file(directory->path());
    QVERIFY(file.Write("old"));
    const QStringList before = Files();
    {
        const FullDisk full(1000);
        QVERIFY(!file.Write(QByteArray(2000, 'n')));
    }
    QCOMPARE(Files(), before);
    QCOMPARE(Contents(Path(before.first())), "old");
    QVERIFY(file.Write("new"));
    QCOMPARE(Contents(Path(before.first())), "new");
}

void RecoveryFileTest::KilledAtAnyMoment()
{
    const QByteArray texts[] = {QByteArray(400000, 'a'), QByteArray(700000, 'b')};
    int found = 0;
    for (int kill = 0; kill < 100; ++kill) {
        const pid_t writer = Writer(directory->path(), texts[kill % 2], texts[(kill + 1) % 2]);
        QVERIFY(writer > 0);
        usleep(QRandomGenerator::global()->bounded(20000));
        Kill(writer);
        const QByteArrayList left = Take(directory->path());
        QVERIFY(left.size() <= 1);
        QVERIFY(left.isEmpty() || left.first() == texts[0] || left.first() == texts[1]);
        found += static_cast<int>(left.size());
    }
    QVERIFY2(found > 20, "the writer was always killed before it wrote");
}

// Many programs start at once where a few have died.
void RecoveryFileTest::OneOfManyTakes()
{
    constexpr int left = 20;
    for (int i = 0; i < left; ++i)
        QVERIFY(RecoveryFile(directory->path()).Write("text"));
    pid_t takers[8];
    for (pid_t& taker : takers) {
        taker = fork();
        if (taker == 0)
            _exit(static_cast<int>(Take(directory->path()).size()));
    }
    int taken = 0;
    for (const pid_t taker : takers) {
        int status = 0;
        QCOMPARE(waitpid(taker, &status, 0), taker);
        taken += WEXITSTATUS(status);
    }
    QCOMPARE(taken, left);
    QCOMPARE(Files(), QStringList());
}

QTEST_APPLESS_MAIN(RecoveryFileTest)
#include "RecoveryFileTest.moc"
