// The one list of the names that a user can type, with the syntax of each: functions, constants, commands and word
// operators. It feeds suggestions and syntax hints. It describes the language and does not define it: who carries out a
// name is decided where lines and expressions are read.
//
// The user's own functions are no part of the table; their owner gives them as a list of the same items.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

/// One name of the language. At most one of the three flags is set; a constant has none.
struct CalculatorSyntaxItem {
    QString name;           ///< what a suggestion inserts; upper case in the table, may hold blanks
    QString syntax;         ///< what a hint shows; empty for constants and word operators
    QStringList parameters; ///< each as it stands in `syntax`, in order; DATE has a word that stands nowhere
    bool isFunction = false;
    bool isCommand = false;
    bool isWordOperator = false; ///< to be offered only while word operators are on
};

/// The built-in names, in the order that decides which of two equal names is found. Built at the first call.
const QList<CalculatorSyntaxItem>& BuiltInSyntaxCatalog();

/// The built-in names and `customItems` behind them. Without custom items the built-in list is shared, not copied.
QList<CalculatorSyntaxItem> GetCalculatorSyntaxCatalog(const QList<CalculatorSyntaxItem>& customItems);

/// The first built-in item of that name in any case, null where there is none. The item lives as long as the program.
const CalculatorSyntaxItem* FindCalculatorSyntaxItem(const QString& name);

/// The same, and where no built-in item has the name, the first of `customItems` that has it.
///
/// @return a pointer into the table or into `customItems`
const CalculatorSyntaxItem* FindCalculatorSyntaxItem(const QString& name,
                                                     const QList<CalculatorSyntaxItem>& customItems);

/// Whether a built-in item is found under that name, in any case, and is a function. Allocates nothing.
bool IsCatalogFunction(QStringView name);
