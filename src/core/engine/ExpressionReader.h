// The grammar of expressions; see OperatorPrecedence.h for how it is read.
//
//     expression := term { ("+" | "-") term }
//     term       := unary { ("*" | "/" | "÷") unary | unary }     the second form is a product; see BeginsFactor
//     unary      := { "+" } ( "-" unary | power )
//     power      := primary { "!" | "%" } [ "^" unary ]
//     primary    := "(" expression ")" | name | name "(" [ expression { "," expression } ] ")" | number
//
// So a power binds tighter than the minus before it and takes a sign behind it (-2^2 is -4, 2^-1 is 0.5), powers group
// to the right, and postfix signs belong to the primary before them.
//
// What is read goes to a sink as operations in evaluation order (operands first). One sink computes as it goes, see
// Evaluator.h; another may keep the operations to run them often. Any member of a sink that returns false fails the
// read:
//
//     void Number(double);                  a literal or a constant
//     bool IsValue(QStringView name);       does this identifier ([A-Za-z_][A-Za-z0-9_]*, as typed) stand for a value?
//     void Named(QStringView name);         the value of an identifier that IsValue knows
//     void Negate(); void Add(); void Subtract(); void Multiply(); bool Divide(); void Power();
//     bool Factorial(); void Percent();
//     bool Call(const FunctionRow&, qsizetype argumentCount);
#pragma once

#include "core/engine/Constants.h"
#include "core/engine/Functions.h"
#include "core/engine/NumberText.h"
#include "core/engine/OperatorPrecedence.h"
#include "core/engine/ProgrammerMath.h"

#include <array>
#include <string_view>

/// A call that lacks arguments.
struct OpenCall {
    const FunctionRow* function = nullptr;
    qsizetype argumentCount = 0; // before the one that is being read
};

template <typename Sink>
class ExpressionReader : public OperatorPrecedence<ExpressionReader<Sink>, OpenCall> {
    using Base = OperatorPrecedence<ExpressionReader, OpenCall>;
    friend Base;

public:
    ExpressionReader(QStringView expression, Sink& operations) : Base(expression), sink(operations) {}

private:
    using Base::AtEnd;
    using Base::Current;
    using Base::position;
    using Base::SkipSpaces;
    using Base::text;
    using typename Base::Next;
    using typename Base::Postfix;
    using typename Base::Primary;
    using typename Base::Waiting;

    Primary ReadPrimary()
    {
        if (IsIdentifierStart(Current()))
            return ReadName();
        return ReadNumber() ? Primary::Operand : Primary::Failure;
    }

    bool ReadNumber()
    {
        const std::optional<double> value =
            BeginsBaseLiteral(text, position) ? TakeBaseLiteral() : TakeDecimalLiteral(text, position);
        if (value)
            sink.Number(*value);
        return value.has_value();
    }

    std::optional<double> TakeBaseLiteral()
    {
        double value = 0;
        bool invalid = false;
        return ProgrammerMath::TryParseBaseLiteral(text, position, value, invalid) ? std::optional(value)
                                                                                   : std::nullopt;
    }

    // An identifier that stands for a value, a constant, or a call: complete, or open for its first argument.
    Primary ReadName()
    {
        if (const qsizetype end = ValueNameEnd(position); end > position) {
            sink.Named(text.sliced(position, end - position));
            position = end;
            return Primary::Operand;
        }
        std::array<char, longestName> buffer;
        const std::string_view name = TakeUpperName(buffer);
        if (name == "PI" || name == "EULER") {
            sink.Number(name == "PI" ? pi : euler);
            return Primary::Operand;
        }
        SkipSpaces();
        const FunctionRow* function = name.empty() || AtEnd() ? nullptr : FindFunction(name);
        if (!function)
            return Primary::Failure; // an unknown name is never zero
        if (Current() == u'(')
            return ReadCall(*function);
        return ReadBareArgument(*function);
    }

    // A value's name straight behind a function's is its argument: its number would stand in brackets.
    Primary ReadBareArgument(const FunctionRow& function)
    {
        const qsizetype end = ValueNameEnd(position);
        if (end == position)
            return Primary::Failure;
        sink.Named(text.sliced(position, end - position));
        position = end;
        return sink.Call(function, 1) ? Primary::Operand : Primary::Failure;
    }

    // Behind the identifier at `start` if the sink has a value for it, otherwise `start`.
    qsizetype ValueNameEnd(qsizetype start) const
    {
        qsizetype end = start;
        if (IsAsciiLetter(text[start]) || text[start] == u'_') {
            while (end < text.size() && IsAsciiWord(text[end]))
                ++end;
        }
        return end > start && sink.IsValue(text.sliced(start, end - start)) ? end : start;
    }

    // Takes the name at the position and gives it in upper case; empty if no constant or function can have it.
    //
    // Behind a character that is not ASCII an identifier of a value may begin, and it ends the name, just as if its
    // number stood there.
    std::string_view TakeUpperName(std::array<char, longestName>& buffer)
    {
        const qsizetype start = position;
        bool afterForeign = false;
        bool ascii = true;
        for (; !AtEnd() && IsIdentifierPart(Current()) && Current() != u'_'; ++position) {
            if (Current().unicode() > 127) {
                ascii = false;
                afterForeign = true;
            } else if (afterForeign && IsAsciiLetter(Current())) {
                if (ValueNameEnd(position) > position)
                    break;
                afterForeign = false;
            }
        }
        if (!afterForeign && !AtEnd() && Current() == u'_')
            return {}; // the whole identifier goes on, and no value has it
        const QStringView name = text.sliced(start, position - start);
        return ascii ? UpperAscii(name, buffer) : UpperForeign(name, buffer);
    }

    static std::string_view UpperAscii(QStringView name, std::array<char, longestName>& buffer)
    {
        if (name.size() > static_cast<qsizetype>(buffer.size()))
            return {};
        char* end = buffer.data();
        for (const QChar c : name)
            *end++ = static_cast<char>(c >= u'a' ? c.unicode() - 32 : c.unicode());
        return {buffer.data(), static_cast<size_t>(name.size())};
    }

    // A few letters have an upper case in ASCII, such as the dotless i.
    static std::string_view UpperForeign(QStringView name, std::array<char, longestName>& buffer)
    {
        if (name.size() > static_cast<qsizetype>(buffer.size()))
            return {};
        const QString upper = name.toString().toUpper();
        const bool ascii = std::all_of(upper.begin(), upper.end(), [](QChar c) { return c.unicode() <= 127; });
        return ascii ? UpperAscii(upper, buffer) : std::string_view();
    }

    // At the opening bracket of a call. A call without arguments is complete at once.
    Primary ReadCall(const FunctionRow& function)
    {
        ++position;
        SkipSpaces();
        if (AtEnd() || Current() != u')') {
            this->Open({&function});
            return Primary::OpenCall;
        }
        ++position;
        return sink.Call(function, 0) ? Primary::Operand : Primary::Failure;
    }

    Postfix ReadPostfix()
    {
        if (Current() == u'!')
            return sink.Factorial() ? Postfix::Taken : Postfix::Failure;
        if (Current() != u'%')
            return Postfix::None;
        sink.Percent();
        return Postfix::Taken;
    }

    Next ReadOtherOperator()
    {
        if (Current() == u'÷')
            return this->Binary(Waiting::Divide, Waiting::Multiply);
        return Current() == u',' ? ReadNextArgument() : Next::Failure;
    }

    static bool BeginsFactor(QChar c) { return c == u'(' || IsIdentifierStart(c); }

    Next ReadNextArgument()
    {
        OpenCall* call = this->Reduce(Waiting::Add) ? this->InnermostCall() : nullptr;
        if (!call)
            return Next::Failure;
        ++call->argumentCount;
        ++position;
        return Next::Operand;
    }

    bool EndCall(const OpenCall& call) { return sink.Call(*call.function, call.argumentCount + 1); }

    bool Complete(Waiting what)
    {
        switch (what) {
        case Waiting::Add:
            sink.Add();
            return true;
        case Waiting::Subtract:
            sink.Subtract();
            return true;
        case Waiting::Multiply:
            sink.Multiply();
            return true;
        case Waiting::Divide:
            return sink.Divide();
        case Waiting::Negate:
            sink.Negate();
            return true;
        case Waiting::Power:
            sink.Power();
            return true;
        case Waiting::Bracket:
        case Waiting::Function:
            break;
        }
        return false;
    }

    Sink& sink;
};
