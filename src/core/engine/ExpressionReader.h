// The grammar of expressions: one pass over the text, without recursion.
//
//     expression := term { ("+" | "-") term }
//     term       := unary { ("*" | "/" | "÷") unary | unary }     the second form is a product; see BeginsFactor
//     unary      := { "+" } ( "-" unary | power )
//     power      := primary { "!" | "%" } [ "^" unary ]
//     primary    := "(" expression ")" | name | name "(" [ expression { "," expression } ] ")" | number
//
// So a power binds tighter than the minus before it and takes a sign behind it (-2^2 is -4, 2^-1 is 0.5), powers group
// to the right, and postfix signs belong to the primary before them. The pending operators stand on a heap stack: how
// deep a text nests is bounded by memory, not by the thread's stack.
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

#include "core/engine/Characters.h"
#include "core/engine/Constants.h"
#include "core/engine/Functions.h"
#include "core/engine/NumberText.h"
#include "core/engine/ProgrammerMath.h"

#include <QStringView>
#include <QVarLengthArray>

#include <array>
#include <string_view>

template <typename Sink>
class ExpressionReader {
public:
    ExpressionReader(QStringView expression, Sink& operations) : text(expression), sink(operations) {}

    /// Reads the whole text as one expression.
    ///
    /// @return false for anything that is no expression, left-over text included, and for what the sink refuses
    bool Read()
    {
        while (ReadOperand()) {
            switch (ReadOperator()) {
            case Next::Operand:
                continue;
            case Next::End:
                return true;
            case Next::Failure:
                return false;
            }
        }
        return false;
    }

private:
    // What may wait on the stack for its right operand, or for its closing bracket. The order is that of binding.
    enum class Waiting : quint8 { Bracket, Function, Add, Subtract, Multiply, Divide, Negate, Power };

    struct Pending {
        Waiting what;
        const FunctionRow* function = nullptr;
        qsizetype argumentCount = 0;
    };

    enum class Name { Operand, OpenCall, Failure };
    enum class Next { Operand, End, Failure };

    bool AtEnd() const { return position >= text.size(); }
    QChar Current() const { return text[position]; }

    void SkipSpaces()
    {
        while (!AtEnd() && IsSpace(Current()))
            ++position;
    }

    void Push(Waiting what) { pending.append({what}); }

    Pending TakePending()
    {
        const Pending last = pending.last();
        pending.removeLast();
        return last;
    }

    // Everything up to and including the next operand's last character; signs, brackets and calls that open before it
    // wait on the stack.
    bool ReadOperand()
    {
        for (;;) {
            SkipSpaces();
            if (AtEnd())
                return false;
            const QChar c = Current();
            if (c == u'-') {
                Push(Waiting::Negate);
            } else if (c == u'(') {
                Push(Waiting::Bracket);
            } else if (IsIdentifierStart(c)) {
                const Name read = ReadName();
                if (read != Name::OpenCall)
                    return read == Name::Operand;
                continue;
            } else if (c != u'+') {
                return ReadNumber();
            }
            ++position;
        }
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
    Name ReadName()
    {
        if (const qsizetype end = ValueNameEnd(position); end > position) {
            sink.Named(text.sliced(position, end - position));
            position = end;
            return Name::Operand;
        }
        std::array<char, longestName> buffer;
        const std::string_view name = TakeUpperName(buffer);
        if (name == "PI" || name == "EULER") {
            sink.Number(name == "PI" ? pi : euler);
            return Name::Operand;
        }
        SkipSpaces();
        const FunctionRow* function = name.empty() || AtEnd() ? nullptr : FindFunction(name);
        if (!function)
            return Name::Failure; // an unknown name is never zero
        if (Current() == u'(')
            return OpenCall(*function);
        return ReadBareArgument(*function);
    }

    // A value's name straight behind a function's is its argument: its number would stand in brackets.
    Name ReadBareArgument(const FunctionRow& function)
    {
        const qsizetype end = ValueNameEnd(position);
        if (end == position)
            return Name::Failure;
        sink.Named(text.sliced(position, end - position));
        position = end;
        return sink.Call(function, 1) ? Name::Operand : Name::Failure;
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
    Name OpenCall(const FunctionRow& function)
    {
        ++position;
        SkipSpaces();
        if (AtEnd() || Current() != u')') {
            pending.append({Waiting::Function, &function});
            return Name::OpenCall;
        }
        ++position;
        return sink.Call(function, 0) ? Name::Operand : Name::Failure;
    }

    Next ReadOperator()
    {
        for (;;) {
            SkipSpaces();
            if (AtEnd())
                return Reduce(Waiting::Add) && pending.isEmpty() ? Next::End : Next::Failure;
            switch (Current().unicode()) {
            case u'!':
                if (!sink.Factorial())
                    return Next::Failure;
                break;
            case u'%':
                sink.Percent();
                break;
            case u')':
                if (!Close())
                    return Next::Failure;
                break;
            default:
                return ReadBinaryOperator();
            }
            ++position;
        }
    }

    Next ReadBinaryOperator()
    {
        switch (Current().unicode()) {
        case u'^':
            ++position;
            Push(Waiting::Power); // groups to the right: nothing before it is complete
            return Next::Operand;
        case u'+':
            return Binary(Waiting::Add, Waiting::Add);
        case u'-':
            return Binary(Waiting::Subtract, Waiting::Add);
        case u'*':
            return Binary(Waiting::Multiply, Waiting::Multiply);
        case u'/':
        case u'÷':
            return Binary(Waiting::Divide, Waiting::Multiply);
        case u',':
            return NextArgument();
        default:
            return BeginsFactor(Current()) ? Binary(Waiting::Multiply, Waiting::Multiply, 0) : Next::Failure;
        }
    }

    static bool BeginsFactor(QChar c) { return c == u'(' || IsIdentifierStart(c); }

    // `weakestComplete`: what waits and binds at least so tightly has both its operands now.
    Next Binary(Waiting what, Waiting weakestComplete, qsizetype length = 1)
    {
        position += length;
        if (!Reduce(weakestComplete))
            return Next::Failure;
        Push(what);
        return Next::Operand;
    }

    Next NextArgument()
    {
        if (!Reduce(Waiting::Add) || pending.isEmpty() || pending.last().what != Waiting::Function)
            return Next::Failure;
        ++pending.last().argumentCount;
        ++position;
        return Next::Operand;
    }

    // The bracket at the position closes an open one or ends a call.
    bool Close()
    {
        if (!Reduce(Waiting::Add) || pending.isEmpty())
            return false;
        const Pending open = TakePending();
        return open.what == Waiting::Bracket || sink.Call(*open.function, open.argumentCount + 1);
    }

    // Completes what waits and binds at least as tightly as `weakest`, the last first. A bracket or call stops it.
    bool Reduce(Waiting weakest)
    {
        while (!pending.isEmpty() && pending.last().what >= weakest) {
            if (!Complete(TakePending().what))
                return false;
        }
        return true;
    }

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

    QStringView text;
    Sink& sink;
    qsizetype position = 0;
    QVarLengthArray<Pending, 32> pending;
};
