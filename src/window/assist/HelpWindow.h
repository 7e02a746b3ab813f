// The manual's browser: a tree of categories and articles, the text beside it, a filter below.
//
// All texts come ready-made from core/manual. A page of the tree has a navigation key, see HelpPage: articles are
// "TOPIC:" and the normalized title, categories "CATEGORY:" and the normalized name. Where two articles share a title
// both have their row, each with its own text, and the key opens the first of them in the tree.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class QStandardItem;
class QStandardItemModel;

namespace Ui {
class HelpWindow;
}

struct HelpWindowArticle {
    QString title;
    QString category;
    QStringList aliases; ///< only searched
    QString summary;
    QString text; ///< as it is shown but for its ruled lines, which are drawn for the width of the pane
};

class HelpWindow : public QWidget {
    Q_OBJECT

public:
    /// @param articles       in the manual's order
    /// @param categoryTexts  a category's menu; one that is not here lists its articles instead
    HelpWindow(const QList<HelpWindowArticle>& articles, const QMap<QString, QString>& categoryTexts,
               const QString& indexText, const QString& aboutText, const QString& fullText, QWidget* parent);
    ~HelpWindow() override;

    /// Shows a page in front of the other windows: the tree's page of the key, or else the text.
    void ShowHelp(const QString& key, const QString& text);

    /// The tree's item for a key or a plain word; null where none or several could be meant.
    QStandardItem* FindNavigationItem(const QString& key) const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Page {
        QString key;
        QString title;
        QString text;
        QString searched;
        bool isArticle;
    };

    void FitSearchLabel();
    void Connect();
    void BuildTree(const QString& indexText, const QString& aboutText, const QString& fullText);
    void AddCategory(const QString& name, QStandardItem* parent);
    void AddArticle(const HelpWindowArticle& article, QStandardItem* parent);
    QStandardItem* AddPage(const Page& page, QStandardItem* parent);
    QString CategoryText(const QString& name) const;

    QStandardItem* OnlyCategoryLike(const QString& word) const;
    void SelectAndShowItem(QStandardItem* item);
    void ShowCurrentTreeItem();
    void ShowStandaloneText(const QString& text);
    void ShowText(const QString& text);
    void RefreshDisplayedHelpText();
    void ScrollTo(int paragraph, int line);
    int AvailableTextWidth() const;
    QString FormatHelpTextForCurrentWidth(const QString& text) const;

    void ShowTreeMenu(const QPoint& position);
    void ApplySearch();
    bool FilterTreeItem(QStandardItem* item, const QString& query);
    bool ItemMatchesSearch(QStandardItem* item, const QString& query) const;
    int CountVisibleArticles(QStandardItem* item) const;
    bool IsFilteredOut(QStandardItem* item) const;

    std::unique_ptr<Ui::HelpWindow> ui;
    QStandardItemModel* model;
    QList<HelpWindowArticle> articles;
    QMap<QString, QString> categoryTexts;
    QMap<QString, QStandardItem*> itemByKey;
    QString currentText; // on display, before its ruled lines are fitted
    bool initialSplitterSizesApplied = false;
};
