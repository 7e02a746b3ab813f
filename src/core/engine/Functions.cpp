#include "core/engine/Functions.h"

#include "core/engine/Financial.h"
#include "core/engine/GDT.h"
#include "core/engine/MathFunctions.h"
#include "core/engine/ProgrammerMath.h"
#include "core/engine/Statistics.h"

#include <unordered_map>

namespace {

using FunctionIndex = std::unordered_map<std::string_view, const FunctionRow*>;

FunctionIndex BuildIndex()
{
    FunctionIndex index;
    for (const FunctionLibrary library : FunctionLibraries()) {
        for (const FunctionRow& row : library)
            index.try_emplace(std::string_view(row.name.data(), static_cast<size_t>(row.name.size())), &row);
    }
    return index;
}

} // namespace

std::span<const FunctionLibrary> FunctionLibraries()
{
    static const FunctionLibrary libraries[] = {
        FinancialFunctions(), StatisticsFunctions(), GDTFunctions(), ProgrammerMath::Functions(), MathFunctions(),
    };
    return libraries;
}

const FunctionRow* FindFunction(std::string_view upperName)
{
    static const FunctionIndex index = BuildIndex();
    const auto row = index.find(upperName);
    return row == index.end() ? nullptr : row->second;
}

double RunFunction(const QString& name, const QList<double>& arguments, bool& ok)
{
    const QByteArray latinName = name.toUtf8();
    const FunctionRow* row = FindFunction({latinName.constData(), static_cast<size_t>(latinName.size())});
    const Value value = row ? CallFunction(*row, arguments, GlobalRandomBits) : std::nullopt;
    ok = value.has_value();
    return value.value_or(0);
}
