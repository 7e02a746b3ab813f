// Conversions found the plain way: a pattern for each spelling, tried one after another at each TO. Far too slow to
// type with, and simple enough to be what the fast search is measured against.
#pragma once

#include <QString>

QString ExpandByPatterns(QString text);
