// Inspection arithmetic for geometric dimensioning and tolerancing: deviations, bonus tolerance, boundaries, fasteners.
//
// Numeric relationships only: no units (all arguments of a call use the same one), no judgement of a part. The formulas
// are those of ASME Y14.5, for the fasteners those of its appendix on positional tolerancing (T = H - F where the
// fastener floats, T = (H - F) / 2 where it is fixed). What each name takes stands in the table of GDT.cpp.
#pragma once

#include "core/engine/FunctionTable.h"

/// All functions of this library, a row each.
FunctionLibrary GDTFunctions();

/// A call by name, in any case of letters.
///
/// @param ok       whether the call gave a value
/// @param handled  whether the name is one of this library; `ok` and the result are final then
/// @return the value, 0 where there is none
double RunGDTFunction(const QString& name, const QList<double>& arguments, bool& ok, bool& handled);
