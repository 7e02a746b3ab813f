// The bytes of a settings file, read into a window that shows itself with them. What the window saves it reads as it
// is.
#include "fuzz/Harness.h"
#include "window/MainWindow.h"
#include "window/workspace/SettingsFile.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

namespace {

// One for all files; it lives as long as the process.
MainWindow& Window()
{
    static const QTemporaryDir home;
    static int count = 1;
    static char name[] = "settings";
    static char* arguments[] = {name, nullptr};
    static MainWindow* const window = [] {
        qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
        new QApplication(count, arguments);
        auto* made = new MainWindow;
        made->show();
        return made;
    }();
    return *window;
}

// Where a window really stands is the platform's to say.
QString SavedBy(MainWindow& window)
{
    window.SaveSettings();
    QFile file(SettingsFilePath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    lines.removeIf([](const QString& line) { return line.startsWith("WindowGeometry="); });
    return lines.join('\n');
}

} // namespace

// The sanitizer asks for what is not ours. NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig\n";
}

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    MainWindow& window = Window();
    QFile file(SettingsFilePath());
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    window.LoadSettings();
    QCoreApplication::processEvents();
    const QString saved = SavedBy(window);
    window.LoadSettings();
    const QString again = SavedBy(window);
    Require(!saved.isEmpty() && again == saved, "what is saved is read", saved + again);
    return 0;
}
