// The typed commands ISOLATE and SIMPLIFY.
#pragma once

#include "core/Submission.h"

#include <QString>

#include <optional>

/// What a line that begins with ISOLATE or SIMPLIFY has to say: the rearranged or simplified text in bold, or why there
/// is none. Nothing of the workspace is read or changed.
///
/// @return nothing where the line is no such command
std::optional<Submission> HandleSymbolicCommand(const QString& line);
