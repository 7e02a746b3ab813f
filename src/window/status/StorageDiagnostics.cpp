#include "window/status/StorageDiagnostics.h"

#include "window/workspace/CalculationLog.h"
#include "window/workspace/DataDirectory.h"
#include "window/workspace/SettingsFile.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QUuid>
#include <QVBoxLayout>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString& TokenKey()
{
    static const QString key = u"Diagnostics/RestartToken"_s;
    return key;
}

QString NewUuid()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString Now()
{
    return QDateTime::currentDateTime().toString(Qt::ISODate);
}

// What stands behind FAIL; nothing: the check is passed.
using Failure = std::optional<QString>;

constexpr std::nullopt_t passed = std::nullopt;

Failure FailureUnless(bool holds)
{
    return holds ? Failure() : QString();
}

Failure FailureOf(const QString& reason)
{
    return u": "_s + reason;
}

class Report {
public:
    void Add(const QString& line) { lines.append(line); }

    void Check(const QString& label, const Failure& failure)
    {
        Add(label + (failure ? u"FAIL"_s + *failure : u"PASS"_s));
        allPassed = allPassed && !failure;
    }

    bool AllPassed() const { return allPassed; }
    QString Text() const { return lines.join(u'\n'); }

private:
    QStringList lines;
    bool allPassed = true;
};

Failure WriteProbe(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
        file.write(bytes) == bytes.size() && file.flush();
    return written ? passed : FailureOf(file.errorString());
}

Failure ReadProbe(const QString& path, const QByteArray& expected)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FailureOf(file.errorString());
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return FailureOf(file.errorString());
    return bytes == expected ? passed : FailureOf(u"The content differs"_s);
}

void AddInstallation(Report& report)
{
    report.Add(u"QUELLBROOK INSTALL DIAGNOSTICS"_s);
    report.Add(u"Time: "_s + Now());
    report.Add(u"Qt: "_s + QString::fromLatin1(qVersion()));
    report.Add(u"Executable: "_s + QCoreApplication::applicationFilePath());
    report.Add(u"Storage mode: Per-user / platform default"_s);
}

void CheckDirectory(Report& report)
{
    const QString directory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    report.Add(u"Storage: "_s + directory);
    report.Add(u"INI: "_s + SettingsFilePath());
    report.Add(u"Log: "_s + CalculationLogPath());
    report.Check(u"Storage directory create/access: "_s, FailureUnless(QDir().mkpath(directory)));
}

void CheckProbeFile(Report& report)
{
    const QString path = DataFilePath(u".ostrell-storage-probe-"_s + NewUuid());
    const QByteArray bytes("OSTRELL-STORAGE-TEST");
    report.Check(u"Independent file write: "_s, WriteProbe(path, bytes));
    report.Check(u"Independent file readback: "_s, ReadProbe(path, bytes));
    report.Check(u"Probe cleanup: "_s, FailureUnless(QFile::remove(path)));
}

void AddPersistence(Report& report)
{
    const std::unique_ptr<QSettings> settings = ReadSettingsFile();
    const QString label = u"Persistence from previous run: "_s;
    if (settings->contains(TokenKey()))
        report.Add(label + u"PASS: token found ("_s + settings->value(TokenKey()).toString() + u')');
    else
        report.Add(label + u"NOT YET TESTED"_s);
}

void CheckSettings(Report& report)
{
    const QString token = NewUuid();
    const bool synced = ChangeSettingsFile([&](QSettings& settings) { settings.setValue(TokenKey(), token); });
    const QString status = u" (QSettings status "_s + QString::number(QSettings::AccessError) + u')';
    report.Check(u"INI sync: "_s, synced ? passed : Failure(status));
    const bool held = ReadSettingsFile()->value(TokenKey()).toString() == token;
    report.Check(u"INI disk readback: "_s, FailureUnless(held));
    report.Add(u"Next restart token: "_s + token);
}

// Whether the line stands in the log behind the bytes that were there before.
bool LogHolds(const QString& line, qint64 before)
{
    QFile file(CalculationLogPath());
    return file.open(QIODevice::ReadOnly) && file.seek(before) && file.readAll().contains(line.toUtf8());
}

void CheckLog(Report& report)
{
    const QString line = u"[OSTRELLDEBUGSTORAGE] "_s + Now() + u" diagnostic log check\n"_s;
    const qint64 before = QFileInfo(CalculationLogPath()).size();
    const LogAppend append = AppendLineToCalculationLog(line);
    report.Check(u"Log append: "_s, append.outcome == LogAppend::Complete ? passed : FailureOf(append.error));
    const bool held = append.outcome != LogAppend::CannotOpen && LogHolds(line, before);
    report.Check(u"Log disk readback: "_s, FailureUnless(held));
}

QPlainTextEdit* ReportBox(const QString& text)
{
    auto* box = new QPlainTextEdit(text);
    box->setAccessibleName(u"Report"_s);
    box->setReadOnly(true);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setTabChangesFocus(true);
    return box;
}

} // namespace

QString StorageDiagnosticsReport()
{
    Report report;
    AddInstallation(report);
    CheckDirectory(report);
    CheckProbeFile(report);
    AddPersistence(report);
    CheckSettings(report);
    CheckLog(report);
    report.Add(u"INSTALLATION CHECK: "_s + (report.AllPassed() ? u"PASS"_s : u"WARN / FAIL (review results above)"_s));
    report.Add(u"Restart Quellbrook and rerun OSTRELLDEBUGSTORAGE to verify persistence."_s);
    return report.Text();
}

void RunOstrellStorageDiagnostics(QWidget* parent)
{
    const QString report = StorageDiagnosticsReport();
    QDialog dialog(parent);
    dialog.setWindowTitle(u"Quellbrook Storage Diagnostics"_s);
    auto* line = new QLabel(u"Installation regression report. Copy the details to share."_s);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    auto* box = ReportBox(report);
    auto* copy = new QPushButton(u"Copy Full Report"_s);
    auto* close = new QPushButton(u"Close"_s);
    QObject::connect(copy, &QPushButton::clicked, &dialog, [report] { QGuiApplication::clipboard()->setText(report); });
    QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(line);
    layout->addWidget(box);
    layout->addLayout(buttons);
    copy->setDefault(true); // which only a button within its dialog can be
    dialog.resize(640, 480);
    box->setFocus();
    dialog.exec();
}
