// What a key costs in the window, beside the same key in a bare editor of the same size.
//
// The argument is the number of lines in the pad. Each turn types a digit at the end of the pad's last line and takes
// it back, painting included; the time is that of both keys.
#include "window/MainWindow.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

QString SheetOf(int lines)
{
    QString text;
    for (int i = 0; i < lines / 2; ++i)
        text += u"%1*(3+4)\n%2\n"_s.arg(i).arg(i * 7);
    return text + u"12*(3+4"_s;
}

void Fill(QPlainTextEdit& editor, int lines)
{
    editor.setPlainText(SheetOf(lines));
    editor.moveCursor(QTextCursor::End);
    QTest::qWait(50);
}

void TypeAndTakeBack(benchmark::State& state, QPlainTextEdit& editor)
{
    for (auto _ : state) {
        QTest::keyClick(&editor, Qt::Key_5);
        editor.viewport()->repaint();
        QTest::keyClick(&editor, Qt::Key_Backspace);
        editor.viewport()->repaint();
    }
}

void KeyInBareEditor(benchmark::State& state)
{
    QPlainTextEdit editor;
    editor.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    editor.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    editor.document()->setUndoRedoEnabled(false);
    editor.resize(400, 500);
    editor.show();
    Fill(editor, static_cast<int>(state.range(0)));
    TypeAndTakeBack(state, editor);
}

void KeyInPad(benchmark::State& state)
{
    MainWindow window;
    window.resize(400, 500);
    window.show();
    auto* pad = window.findChild<QPlainTextEdit*>(u"Text1"_s);
    Fill(*pad, static_cast<int>(state.range(0)));
    TypeAndTakeBack(state, *pad);
}

void EnterInPad(benchmark::State& state)
{
    MainWindow window;
    window.resize(400, 500);
    window.show();
    auto* pad = window.findChild<QPlainTextEdit*>(u"Text1"_s);
    Fill(*pad, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QTest::keyClicks(pad, u"7*6"_s);
        QTest::keyClick(pad, Qt::Key_Return);
        pad->viewport()->repaint();
    }
}

// The first HELP of a window, its articles read and its tree made; and the next one.
void OpenHelpFirst(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<MainWindow>();
        window->show();
        auto* pad = window->findChild<QPlainTextEdit*>(u"Text1"_s);
        QTest::keyClicks(pad, u"HELP SQRT"_s);
        state.ResumeTiming();
        QTest::keyClick(pad, Qt::Key_Return);
        QCoreApplication::processEvents();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
}

void OpenHelpNext(benchmark::State& state)
{
    MainWindow window;
    window.show();
    auto* pad = window.findChild<QPlainTextEdit*>(u"Text1"_s);
    QTest::keyClicks(pad, u"HELP SQRT"_s);
    QTest::keyClick(pad, Qt::Key_Return);
    bool other = false;
    for (auto _ : state) {
        QTest::keyClicks(pad, (other = !other) ? u"HELP PMT"_s : u"HELP SQRT"_s);
        QTest::keyClick(pad, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
}

BENCHMARK(KeyInBareEditor)->Arg(10)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(KeyInPad)->Arg(10)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(EnterInPad)->Arg(10)->Arg(100000)->Iterations(300)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenHelpFirst)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenHelpNext)->Iterations(50)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
