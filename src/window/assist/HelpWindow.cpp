#include "window/assist/HelpWindow.h"

#include "core/manual/HelpEntry.h"
#include "window/assist/RuledLines.h"

#include "ui_HelpWindow.h"

#include <QAbstractTextDocumentLayout>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QStandardItemModel>
#include <QTextBlock>
#include <QtMath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum Role { keyRole = Qt::UserRole + 1, articleRole, textRole, searchedRole };

constexpr qsizetype shortestLikeness = 4; // characters of a word that may be part of a category's name
constexpr int treeWidth = 170;            // pixels, as all places
constexpr int labelLeft = 5;
constexpr int filterLeft = 40;

constexpr QStringView categoryKey = u"CATEGORY:";
constexpr QStringView topicKey = u"TOPIC:";

// Categories that the manual does not have are passed over, those that are not here follow in the manual's order.
constexpr QStringView preferredCategories[] = {
    u"BASICS",           u"FUNCTIONS", u"PROGRAMMER MATH", u"STATISTICS",
    u"FINANCIAL",        u"GD&T",      u"DATE & TIME",     u"UNIT CONVERSIONS",
    u"CUSTOM FUNCTIONS", u"VARIABLES", u"EQUATIONS",       u"SOLVER",
    u"SETTINGS",         u"PAD",       u"COMMANDS",        u"WINDOW",
    u"WINDOWS",
};

bool SameCategory(const QString& one, QStringView other)
{
    return other.compare(one, Qt::CaseInsensitive) == 0;
}

QStringList CategoriesInOrder(const QList<HelpWindowArticle>& articles)
{
    QStringList found;
    for (const HelpWindowArticle& article : articles) {
        if (!found.contains(article.category, Qt::CaseInsensitive))
            found.append(article.category);
    }
    QStringList ordered;
    for (const QStringView preferred : preferredCategories) {
        if (found.removeIf([&](const QString& name) { return SameCategory(name, preferred); }) > 0)
            ordered.append(preferred.toString());
    }
    return ordered + found;
}

} // namespace

HelpWindow::HelpWindow(const QList<HelpWindowArticle>& manualArticles, const QMap<QString, QString>& menus,
                       const QString& indexText, const QString& aboutText, const QString& fullText, QWidget* parent)
    : QWidget(parent, Qt::Window), ui(std::make_unique<Ui::HelpWindow>()), model(new QStandardItemModel(this)),
      articles(manualArticles), categoryTexts(menus)
{
    ui->setupUi(this);
    ui->helpText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // A bar that came and went with the length of the text would change the width that the text was fitted to.
    ui->helpText->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    FitSearchLabel();
    ui->helpTree->setModel(model);
    ui->helpSplitter->setStretchFactor(1, 1); // the topics keep their width
    // A title that is too long is scrolled to.
    ui->helpTree->header()->setStretchLastSection(false);
    ui->helpTree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    Connect();
    BuildTree(indexText, aboutText, fullText);
    resize(545, 478);
}

HelpWindow::~HelpWindow() = default;

// The label has its fixed place before the filter, whatever the font of the desktop.
void HelpWindow::FitSearchLabel()
{
    const double room = filterLeft - labelLeft - 1;
    QFont font = ui->searchLabel->font();
    const double wanted = QFontMetricsF(font).horizontalAdvance(ui->searchLabel->text());
    if (wanted > room && font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * room / wanted);
    ui->searchLabel->setFont(font);
}

void HelpWindow::Connect()
{
    connect(ui->helpSplitter, &QSplitter::splitterMoved, this, &HelpWindow::RefreshDisplayedHelpText);
    connect(ui->helpTree, &QWidget::customContextMenuRequested, this, &HelpWindow::ShowTreeMenu);
    connect(ui->helpTree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &HelpWindow::ShowCurrentTreeItem);
    connect(ui->searchEdit, &QLineEdit::textChanged, this, &HelpWindow::ApplySearch);
    connect(ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this, &QWidget::close);
    // A text without a place in the tree leaves a row current, which is no change when it is chosen again.
    connect(ui->helpTree, &QAbstractItemView::clicked, this, &HelpWindow::ShowCurrentTreeItem);
    connect(ui->helpTree, &QAbstractItemView::activated, this, &HelpWindow::ShowCurrentTreeItem);
}

void HelpWindow::BuildTree(const QString& indexText, const QString& aboutText, const QString& fullText)
{
    const QString rootTitle = u"Quellbrook Help"_s;
    QStandardItem* root =
        AddPage({u"SPECIAL:INDEX"_s, rootTitle, indexText, u"QUELLBROOK HELP INDEX CONTENTS"_s, false},
                model->invisibleRootItem());
    for (const QString& category : CategoriesInOrder(articles))
        AddCategory(category, root);
    AddPage({u"SPECIAL:ABOUT"_s, u"Using HELP"_s, aboutText, u"USING HELP HELP COMMAND SEARCH"_s, false}, root);
    AddPage({u"SPECIAL:ALL"_s, u"Complete Help Manual"_s, fullText, u"COMPLETE HELP MANUAL ALL"_s, false}, root);
    ui->helpTree->expand(root->index());
    SelectAndShowItem(root);
}

void HelpWindow::AddCategory(const QString& name, QStandardItem* parent)
{
    const QString text = CategoryText(name);
    const QString searched = name + u' ' + text;
    QStandardItem* category = AddPage({categoryKey + NormalizeHelpKey(name), name, text, searched, false}, parent);
    for (const HelpWindowArticle& article : articles) {
        if (SameCategory(article.category, name))
            AddArticle(article, category);
    }
}

QString HelpWindow::CategoryText(const QString& name) const
{
    if (const auto menu = categoryTexts.find(name); menu != categoryTexts.end())
        return *menu;
    const QString rule(16, u'=');
    QString text = rule + u' ' + name + u' ' + rule + u"\n\n"_s;
    for (const HelpWindowArticle& article : articles) {
        if (SameCategory(article.category, name))
            text += article.title + u"\n    "_s + article.summary + u"\n\n"_s;
    }
    return text + QString(52, u'=');
}

void HelpWindow::AddArticle(const HelpWindowArticle& article, QStandardItem* parent)
{
    const QStringList searched{article.title, article.aliases.join(u' '), article.category, article.summary,
                               article.text};
    AddPage({topicKey + NormalizeHelpKey(article.title), article.title, article.text, searched.join(u' '), true},
            parent);
}

QStandardItem* HelpWindow::AddPage(const Page& page, QStandardItem* parent)
{
    auto* item = new QStandardItem(page.title);
    item->setData(page.key, keyRole);
    item->setData(page.isArticle, articleRole);
    item->setData(page.text, textRole);
    item->setData(page.searched, searchedRole);
    parent->appendRow(item);
    if (!itemByKey.contains(page.key))
        itemByKey.insert(page.key, item);
    return item;
}

void HelpWindow::ShowHelp(const QString& key, const QString& text)
{
    if (!isVisible())
        show();
    raise();
    activateWindow();
    QStandardItem* item = FindNavigationItem(key);
    if (!item) {
        ShowStandaloneText(text);
        return;
    }
    if (IsFilteredOut(item))
        ui->searchEdit->clear();
    SelectAndShowItem(item);
}

QStandardItem* HelpWindow::FindNavigationItem(const QString& key) const
{
    if (key.isEmpty())
        return nullptr;
    const QString word = NormalizeHelpKey(key);
    for (const QString& candidate : QStringList{key, topicKey + word, categoryKey + word}) {
        if (QStandardItem* item = itemByKey.value(candidate))
            return item;
    }
    const auto named = std::find_if(itemByKey.begin(), itemByKey.end(),
                                    [&](QStandardItem* item) { return NormalizeHelpKey(item->text()) == word; });
    return named != itemByKey.end() ? *named : OnlyCategoryLike(word);
}

// The one category whose name holds the word or is held in it.
QStandardItem* HelpWindow::OnlyCategoryLike(const QString& word) const
{
    if (word.size() < shortestLikeness)
        return nullptr;
    QStandardItem* only = nullptr;
    for (auto entry = itemByKey.lowerBound(categoryKey.toString());
         entry != itemByKey.end() && entry.key().startsWith(categoryKey); ++entry) {
        const QString name = NormalizeHelpKey(entry.value()->text());
        if (!name.contains(word) && !word.contains(name))
            continue;
        if (only)
            return nullptr;
        only = entry.value();
    }
    return only;
}

void HelpWindow::SelectAndShowItem(QStandardItem* item)
{
    const QModelIndex index = item->index();
    const bool wasCurrent = ui->helpTree->currentIndex() == index;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        ui->helpTree->expand(above);
    ui->helpTree->setCurrentIndex(index);
    ui->helpTree->scrollTo(index);
    if (wasCurrent) // otherwise the change of the current row has shown it
        ShowCurrentTreeItem();
}

void HelpWindow::ShowCurrentTreeItem()
{
    const QModelIndex index = ui->helpTree->currentIndex();
    if (!index.isValid())
        return;
    ShowText(index.data(textRole).toString());
    ui->statusLabel->setText(index.data().toString());
}

void HelpWindow::ShowStandaloneText(const QString& text)
{
    ui->helpTree->clearSelection();
    ShowText(text);
    ui->statusLabel->setText(u"Help"_s);
}

// Another text is read from its beginning; the same one stays where it was.
void HelpWindow::ShowText(const QString& text)
{
    if (text != currentText) {
        ui->helpText->moveCursor(QTextCursor::Start);
        ui->helpText->verticalScrollBar()->setValue(0);
    }
    currentText = text;
    RefreshDisplayedHelpText();
}

void HelpWindow::RefreshDisplayedHelpText()
{
    if (currentText.isEmpty())
        return;
    const QTextBlock top = ui->helpText->cursorForPosition(QPoint()).block();
    const int topBlock = top.blockNumber();
    const int topLine = ui->helpText->verticalScrollBar()->value() - top.firstLineNumber();
    const int position = ui->helpText->textCursor().position();
    ui->helpText->setPlainText(FormatHelpTextForCurrentWidth(currentText));
    QTextCursor cursor = ui->helpText->textCursor();
    cursor.setPosition(std::min(position, ui->helpText->document()->characterCount() - 1));
    ui->helpText->setTextCursor(cursor);
    ScrollTo(topBlock, topLine);
}

// The scroll bar counts lines, and a paragraph that has not yet been laid out counts as one. Those below may wait.
void HelpWindow::ScrollTo(int paragraph, int line)
{
    const QTextDocument* document = ui->helpText->document();
    const QTextBlock top = document->findBlockByNumber(paragraph);
    if (!top.isValid())
        return;
    for (QTextBlock block = document->begin(); block.blockNumber() < paragraph; block = block.next())
        document->documentLayout()->blockBoundingRect(block);
    document->documentLayout()->blockBoundingRect(top);
    const int lastLine = std::max(0, top.lineCount() - 1);
    ui->helpText->verticalScrollBar()->setValue(top.firstLineNumber() + std::clamp(line, 0, lastLine));
}

int HelpWindow::AvailableTextWidth() const
{
    const int margins = qCeil(2 * ui->helpText->document()->documentMargin());
    return std::max(1, ui->helpText->viewport()->contentsRect().width() - margins);
}

QString HelpWindow::FormatHelpTextForCurrentWidth(const QString& text) const
{
    return FitRuledLines(text, AvailableTextWidth(), QFontMetricsF(ui->helpText->font()));
}

void HelpWindow::ShowTreeMenu(const QPoint& position)
{
    QMenu menu(this);
    menu.addAction(u"Expand All"_s, ui->helpTree, &QTreeView::expandAll);
    menu.addAction(u"Collapse All"_s, ui->helpTree, &QTreeView::collapseAll);
    menu.exec(ui->helpTree->viewport()->mapToGlobal(position));
}

void HelpWindow::ApplySearch()
{
    const QString query = ui->searchEdit->text().trimmed();
    QStandardItem* top = model->invisibleRootItem();
    for (int row = 0; row < top->rowCount(); ++row)
        ui->helpTree->setRowHidden(row, QModelIndex(), !FilterTreeItem(top->child(row), query));
    if (query.isEmpty()) {
        ui->statusLabel->setText(u"Help"_s);
        return;
    }
    ui->helpTree->expandAll();
    const int count = CountVisibleArticles(top);
    ui->statusLabel->setText(QString::number(count) + (count == 1 ? u" topic"_s : u" topics"_s));
}

// Rows that match keep those above them; a category that matches by itself does not keep its articles.
bool HelpWindow::FilterTreeItem(QStandardItem* item, const QString& query)
{
    bool keep = query.isEmpty() || ItemMatchesSearch(item, query);
    for (int row = 0; row < item->rowCount(); ++row) {
        const bool keepChild = FilterTreeItem(item->child(row), query);
        ui->helpTree->setRowHidden(row, item->index(), !keepChild);
        keep = keep || keepChild;
    }
    return keep;
}

bool HelpWindow::ItemMatchesSearch(QStandardItem* item, const QString& query) const
{
    return item->data(searchedRole).toString().contains(query, Qt::CaseInsensitive);
}

int HelpWindow::CountVisibleArticles(QStandardItem* item) const
{
    int count = item->data(articleRole).toBool() ? 1 : 0;
    for (int row = 0; row < item->rowCount(); ++row) {
        if (!ui->helpTree->isRowHidden(row, item->index()))
            count += CountVisibleArticles(item->child(row));
    }
    return count;
}

bool HelpWindow::IsFilteredOut(QStandardItem* item) const
{
    for (QModelIndex index = item->index(); index.isValid(); index = index.parent()) {
        if (ui->helpTree->isRowHidden(index.row(), index.parent()))
            return true;
    }
    return false;
}

void HelpWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int w = width();
    const int h = height();
    ui->helpSplitter->setGeometry(0, 0, w - 2, h - 28);
    ui->searchLabel->move(labelLeft, h - 18);
    ui->searchEdit->setGeometry(filterLeft, h - 24, std::max(w - 374, 60), 21);
    ui->statusLabel->setGeometry(w - 325, h - 24, 251, 21);
    ui->closeButton->setGeometry(w - 69, h - 23, 65, 20);
    if (!initialSplitterSizesApplied) {
        ui->helpSplitter->setSizes({treeWidth, std::max(w - treeWidth - 4, 100)});
        initialSplitterSizesApplied = true;
    }
    RefreshDisplayedHelpText();
}
