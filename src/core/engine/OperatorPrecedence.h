// What the readers of expressions share: signs, the four operations, powers and brackets, read by operator precedence
// in one pass and without recursion. What lacks its right operand waits on a stack of the heap: how deep a text nests
// is bounded by memory, not by the thread's stack.
//
// A reader derives from this and says what is its own:
//
//     Primary ReadPrimary();              the number, name or call that begins at the position
//     Postfix ReadPostfix();              the sign behind an operand at the position, if it is one; it moves nothing
//     Next ReadOtherOperator();           at a character that is no operator of the ones below
//     bool EndCall(const Call&);          at the closing bracket of a call that ReadPrimary opened
//     bool Complete(Waiting);             an operation has its operands now
//     static bool BeginsFactor(QChar);    whether it begins an operand that multiplies the one before
#pragma once

#include "core/engine/Characters.h"

#include <QStringView>
#include <QVarLengthArray>

#include <utility>

/// @tparam Grammar  the deriving reader
/// @tparam Call     what it has to remember of an open call
template <typename Grammar, typename Call>
class OperatorPrecedence {
public:
    explicit OperatorPrecedence(QStringView expression) : text(expression) {}

    /// Reads the whole text as one expression.
    ///
    /// @return false for anything that is no expression, left-over text included
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

protected:
    // What may wait for its right operand, or for its closing bracket. The order is that of binding.
    enum class Waiting : quint8 { Bracket, Function, Add, Subtract, Multiply, Divide, Negate, Power };

    enum class Primary { Operand, OpenCall, Failure };
    enum class Postfix { None, Taken, Failure };
    enum class Next { Operand, End, Failure };

    bool AtEnd() const { return position >= text.size(); }
    QChar Current() const { return text[position]; }

    void SkipSpaces()
    {
        while (!AtEnd() && IsSpace(Current()))
            ++position;
    }

    void Open(const Call& call) { pending.append({Waiting::Function, call}); }

    // The call that the position is directly in; null in brackets or outside of all.
    Call* InnermostCall()
    {
        return pending.isEmpty() || pending.last().what != Waiting::Function ? nullptr : &pending.last().call;
    }

    // Completes what waits and binds at least as tightly as `weakest`, the last first. A bracket or call stops it.
    bool Reduce(Waiting weakest)
    {
        while (!pending.isEmpty() && pending.last().what >= weakest) {
            const Waiting what = pending.last().what;
            pending.removeLast();
            if (!Self().Complete(what))
                return false;
        }
        return true;
    }

    // `weakestComplete`: what waits and binds at least so tightly has both its operands now.
    Next Binary(Waiting what, Waiting weakestComplete, qsizetype length = 1)
    {
        position += length;
        if (!Reduce(weakestComplete))
            return Next::Failure;
        Push(what);
        return Next::Operand;
    }

    QStringView text;
    qsizetype position = 0;

private:
    struct Pending {
        Waiting what;
        Call call = {};
    };

    Grammar& Self() { return static_cast<Grammar&>(*this); }

    void Push(Waiting what) { pending.append({what}); }

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
            } else if (c != u'+') {
                const Primary read = Self().ReadPrimary();
                if (read != Primary::OpenCall)
                    return read == Primary::Operand;
                continue;
            }
            ++position;
        }
    }

    Next ReadOperator()
    {
        for (;;) {
            SkipSpaces();
            if (AtEnd())
                return Reduce(Waiting::Add) && pending.isEmpty() ? Next::End : Next::Failure;
            const Postfix read = Current() == u')' ? Close() : Self().ReadPostfix();
            if (read == Postfix::None)
                return ReadBinaryOperator();
            if (read == Postfix::Failure)
                return Next::Failure;
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
            return Binary(Waiting::Divide, Waiting::Multiply);
        default:
            return Grammar::BeginsFactor(Current()) ? Binary(Waiting::Multiply, Waiting::Multiply, 0)
                                                    : Self().ReadOtherOperator();
        }
    }

    // The bracket at the position closes an open one or ends a call.
    Postfix Close()
    {
        if (!Reduce(Waiting::Add) || pending.isEmpty())
            return Postfix::Failure;
        const Pending open = std::move(pending.last());
        pending.removeLast();
        return open.what == Waiting::Bracket || Self().EndCall(open.call) ? Postfix::Taken : Postfix::Failure;
    }

    QVarLengthArray<Pending, 32> pending;
};
