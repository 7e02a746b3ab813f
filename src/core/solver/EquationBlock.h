// Equation blocks: where { } enclose lines of the pad. Positions are UTF-16 indices, a cursor stands before its index.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

/// Whether a cursor at `position` stands in a block that is not closed before it.
bool IsInsideEquationBlock(QStringView text, qsizetype position);

/// The lines of the last block that is closed before `position`.
///
/// @param equations  normalised, without the empty ones
/// @param normalize  makes of a line of the pad what the tries read
/// @return false, with no lines, where there is no such block, a brace in it is closed too often, or it is empty
bool ExtractEquationBlock(QStringView text, qsizetype position, QStringList& equations,
                          const std::function<QString(const QString&)>& normalize);
