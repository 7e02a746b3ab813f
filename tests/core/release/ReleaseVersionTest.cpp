#include "core/release/ReleaseVersion.h"
#include "../Table.h"

#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseProduct.h"

using namespace ReleaseDesk;

class ReleaseVersionTest : public QObject {
    Q_OBJECT

private slots:
    void Version_data();
    void Version() { CheckRow(); }
    void Comparison_data();
    void Comparison() { CheckRow(); }
    void ComparisonTexts();
    void ThisProgram();
};

void ReleaseVersionTest::Version_data()
{
    // No numbers: no version.
    const Table row([](const QString& text, const QList<int>& numbers) {
        int major = -1;
        int minor = -1;
        int patch = -1;
        QCOMPARE(ParseStrictVersion(text, major, minor, patch), !numbers.isEmpty());
        QCOMPARE(QList({major, minor, patch}), numbers.isEmpty() ? QList({-1, -1, -1}) : numbers);
    });
    using Numbers = QList<int>;
    // clang-format off
    row("three numbers",                "1.2.3",                             Numbers{1, 2, 3});
    row("of several digits",            "10.200.3000",                       Numbers{10, 200, 3000});
    row("blanks around",                " \t1.2.3\n",                        Numbers{1, 2, 3});
    row("the largest of 32 bits",       "0.0.2147483647",                    Numbers{0, 0, 2147483647});
    row("one more",                     "0.0.2147483648",                    Numbers{});
    row("too large in front",           "4294967297.0.0",                    Numbers{});
    row("two",                          "1.2",                               Numbers{});
    row("four",                         "1.2.3.4",                           Numbers{});
    row("nothing",                      "",                                  Numbers{});
    row("a blank within",               "1. 2.3",                            Numbers{});
    row("a sign",                       "+1.2.3",                            Numbers{});
    row("a letter before",              "v1.2.3",                            Numbers{});
    row("a word behind",                "1.2.3-beta",                        Numbers{});
    row("digits of another script",     QString::fromUtf8("١.٢.٣"),          Numbers{});
    row("a zero at the end",            QString("1.2.3") + QChar(0),         Numbers{});
    row("very long",                    QString(100000, '1') + ".2.3",       Numbers{});
    // clang-format on
}

void ReleaseVersionTest::Comparison_data()
{
    const Table row([](const QString& running, const QString& release, int comparison) {
        Initialize("quellbrook-desktop", "Quellbrook Desktop", running);
        ReleaseMetadata metadata;
        metadata.currentVersion = release;
        QCOMPARE(static_cast<int>(CompareReleaseVersion(metadata)), comparison);
    });
    // clang-format off
    row("equal",                                  "1.0.0",   "1.0.0",     1);
    row("equal numbers",                          "1.0.0",   " 01.0.00 ", 1);
    row("a higher patch",                         "1.0.0",   "1.0.1",     2);
    row("a higher minor",                         "1.9.9",   "1.10.0",    2);
    row("a higher minor with a lower patch",      "1.0.5",   "1.1.0",     2);
    row("a higher major",                         "9.0.0",   "10.0.0",    3);
    row("a higher major with all others lower",   "1.9.9",   "2.0.0",     3);
    row("a lower patch",                          "1.0.1",   "1.0.0",     4);
    row("a lower minor with a higher patch",      "1.10.0",  "1.9.9",     4);
    row("a lower major with all others higher",   "2.0.0",   "1.9.9",     4);
    row("a release without a version",            "1.0.0",   "2.0",       0);
    row("a program without a version",            "1.0",     "2.0.0",     0);
    // clang-format on
}

void ReleaseVersionTest::ComparisonTexts()
{
    const QStringList texts = {"Unknown",
                               "Current",
                               "Newer minor release available",
                               "Newer major release available",
                               "Running version is newer than release metadata",
                               "Unknown"};
    for (int comparison = 0; comparison < texts.size(); ++comparison)
        QCOMPARE(ReleaseComparisonText(static_cast<ReleaseComparison>(comparison)), texts.at(comparison));
}

// A build whose own version is none would never see a newer one.
void ReleaseVersionTest::ThisProgram()
{
    int major = 0;
    int minor = 0;
    int patch = 0;
    QVERIFY(ParseStrictVersion(BuiltVersion(), major, minor, patch));
    Initialize("quellbrook-desktop", "Quellbrook Desktop", BuiltVersion());
    QCOMPARE(ProductId(), "quellbrook-desktop");
    QCOMPARE(ProductName(), "Quellbrook Desktop");
    QCOMPARE(ApplicationVersion(), BuiltVersion());
    if (ReleaseUrl().isValid()) {
        QCOMPARE(ReleaseUrl().scheme(), "https");
        QCOMPARE(ReleaseUrl().path(), "/QuellbrookDesktop/release.json");
    }
}

QTEST_APPLESS_MAIN(ReleaseVersionTest)
#include "ReleaseVersionTest.moc"
