#include "core/workspace/SharedText.h"

#include <QTest>

#include <malloc.h>
#include <random>

namespace {

using Random = std::mt19937;

int Below(Random& random, int bound)
{
    return static_cast<int>(random() % static_cast<unsigned>(bound));
}

// A short text of few characters, so that neighbours are often alike, with surrogate pairs in it.
WeightedText RandomText(Random& random, int most)
{
    WeightedText text;
    for (int runs = Below(random, 4); runs > 0; --runs) {
        QString run;
        while (Below(random, most) != 0)
            run += Below(random, 9) == 0 ? QString("\U0001F600") : QString(QChar(u'a' + Below(random, 2)));
        text.Append(run, Below(random, 2) == 0);
    }
    return text;
}

void Replace(WeightedText& text, int from, int removed, const WeightedText& inserted)
{
    WeightedText changed;
    changed.Append(text, 0, from);
    changed.Append(inserted, 0, inserted.text.size());
    changed.Append(text, from + removed, text.text.size());
    text = changed;
}

WeightedText Changed(WeightedText text, const QList<TextChange>& changes)
{
    for (const TextChange& change : changes) {
        WeightedText inserted;
        for (const PadRun& run : change.inserted)
            inserted.Append(run.text, run.bold);
        Replace(text, change.position, change.removed, inserted);
    }
    return text;
}

SharedText LongText(int lines)
{
    WeightedText text;
    for (int i = 0; i < lines; ++i)
        text.Append(QString("%1 * 2 + SQRT(16)\n").arg(i), i % 2 == 1);
    SharedText shared;
    shared.Replace(0, 0, text);
    return shared;
}

WeightedText Line()
{
    WeightedText line;
    line.Append(u"7\n", true);
    return line;
}

} // namespace

class SharedTextTest : public QObject {
    Q_OBJECT

private slots:
    void RandomChanges_data();
    void RandomChanges();
    void NoChangePartsASurrogatePair();
    void FarEditsAreChangesOfTheirOwn();
    void CopiesOfALongTextAreSmall();
};

void SharedTextTest::RandomChanges_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<int>("most");
    for (unsigned seed = 1; seed <= 40; ++seed)
        QTest::addRow("seed %u", seed) << seed << (seed % 4 == 0 ? 3000 : 20);
}

// A copy stays what it was, and any state leads to any other by its changes.
void SharedTextTest::RandomChanges()
{
    QFETCH(unsigned, seed);
    QFETCH(int, most);
    Random random(seed);
    SharedText text;
    WeightedText model;
    QList<SharedText> copies;
    QList<WeightedText> models;
    for (int i = 0; i < 60; ++i) {
        const int from = Below(random, text.Length() + 1);
        const int removed = Below(random, std::min(text.Length() - from, most) + 1);
        const WeightedText inserted = RandomText(random, most);
        text.Replace(from, removed, inserted);
        Replace(model, from, removed, inserted);
        QCOMPARE(text.Length(), model.text.size());
        QCOMPARE(text.Text(), model.text);
        copies.append(text);
        models.append(model);
        const int other = Below(random, static_cast<int>(copies.size()));
        QVERIFY(Changed(model, text.ChangesTo(copies[other])) == models[other]);
        QVERIFY(Changed(models[other], copies[other].ChangesTo(text)) == model);
        if (Below(random, 5) == 0) {
            text = copies[other];
            model = models[other];
        }
    }
    for (int i = 0; i < copies.size(); ++i)
        QVERIFY(copies[i].Content() == models[i]);
}

void SharedTextTest::NoChangePartsASurrogatePair()
{
    for (const auto& [from, to] : {std::pair(u"a\U0001F600b", u"a\U0001F601b"), std::pair(u"\U0001F600", u"\U0001FA00"),
                                   std::pair(u"\U0001F600", u"\U0001F600\U0001F600")}) {
        WeightedText wanted;
        wanted.Append(to, false);
        SharedText text;
        SharedText other;
        other.Replace(0, 0, wanted);
        wanted.Append(from, false);
        Replace(wanted, 0, QStringView(to).size(), {});
        text.Replace(0, 0, wanted);
        const QString inserted = text.ChangesTo(other)[0].inserted[0].text;
        QVERIFY(!inserted.front().isLowSurrogate() && !inserted.back().isHighSurrogate());
    }
}

void SharedTextTest::FarEditsAreChangesOfTheirOwn()
{
    const SharedText before = LongText(20000);
    SharedText after = before;
    after.Replace(after.Length(), 0, Line());
    after.Replace(100000, 5, Line());
    after.Replace(10, 0, Line());
    const QList<TextChange> changes = after.ChangesTo(before);
    QCOMPARE(changes.size(), 3);
    for (const TextChange& change : changes)
        QVERIFY(change.removed <= 5);
    QVERIFY(changes[0].position > changes[1].position && changes[1].position > changes[2].position);
}

void SharedTextTest::CopiesOfALongTextAreSmall()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer's allocator does not count");
#endif
    SharedText text = LongText(100000);
    const size_t before = mallinfo2().uordblks;
    QList<SharedText> copies;
    for (int i = 0; i < 100; ++i) {
        copies.append(text);
        text.Replace(text.Length() / 100 * i, 0, Line());
    }
    QVERIFY(mallinfo2().uordblks - before < 8 * 1024 * 1024);
}

QTEST_APPLESS_MAIN(SharedTextTest)
#include "SharedTextTest.moc"
