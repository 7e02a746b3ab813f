// Typed commands as text: how a line is matched with a command, and which words are closed to variables because a
// command has them. What the commands do stands with whoever runs them.
#pragma once

#include <QString>
#include <QStringView>

/// Whether `text`, trimmed, is `command` or begins with it at a word's end, in any case.
///
/// @param command  may hold blanks, each matched by exactly one blank
/// @param rest     what stands behind the command, trimmed; empty without a match
bool MatchCommand(QStringView text, QStringView command, QString& rest);

/// Whether the trimmed name is, in any case, a word that a command begins with or consists of.
bool IsCommandName(QStringView name);
