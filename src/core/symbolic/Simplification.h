// SIMPLIFY: an expression or equation tidied by safe rules, as text. TreePass.h names the rules.
#pragma once

#include "core/symbolic/TreePass.h"

#include <QString>
#include <QStringView>

/// The simplified text of an expression, or of both sides of an equation, from which equal terms are then cancelled.
/// An equation is never judged: 2 = 3 stays.
///
/// @param result  the text; on failure the words for the user
bool SimplifyText(const QString& text, QString& result);

/// Simplifies one expression until its text no longer changes, 20 times at most.
///
/// @param result  the text
/// @return false for what can't be read and for what would grow beyond all bounds
bool SimplifyOneExpression(QStringView text, QString& result, Effort& effort);
