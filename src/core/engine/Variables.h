// Variables as text: which names they may have and what a line that assigns one looks like.
#pragma once

#include <QString>
#include <QStringView>

/// Whether a name is made of ASCII letters, digits and underscores and does not begin with a digit.
bool IsValidVariableName(QStringView name);

/// Takes `name = expression` apart.
///
/// @param name        as typed, trimmed
/// @param expression  trimmed; may be empty
/// @return false, with both empty, unless exactly one "=" stands in the text and a valid name before it
bool ParseVariableAssignment(const QString& text, QString& name, QString& expression);
