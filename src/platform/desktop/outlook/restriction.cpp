#include "platform/desktop/outlook/restriction.h"

namespace platform {

namespace {

using Operator = Restriction::Operator;
using Kind = Restriction::Kind;
using Parsed = std::optional<Restriction>;

constexpr int longestText = 65536;
constexpr int deepestNesting = 100;

struct OperatorSign
{
    QLatin1String sign;
    Operator comparison;
};

// A sign that begins with another one stands before it.
const OperatorSign operatorSigns[] = {
    {QLatin1String("<="), Operator::LessOrEqual},    {QLatin1String("<>"), Operator::NotEqual},
    {QLatin1String(">="), Operator::GreaterOrEqual}, {QLatin1String("<"), Operator::Less},
    {QLatin1String(">"), Operator::Greater},         {QLatin1String("="), Operator::Equal},
};

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

class Parser
{
public:
    explicit Parser(const QString &text)
        : m_text(text)
    {
    }

    Parsed parse()
    {
        Parsed all = anyOf();
        skipBlanks();
        return m_at == m_text.size() ? all : std::nullopt;
    }

private:
    Parsed anyOf() { return chain(Kind::AnyOf, QLatin1String("or"), &Parser::allOf); }

    Parsed allOf() { return chain(Kind::AllOf, QLatin1String("and"), &Parser::operand); }

    Parsed chain(Kind kind, QLatin1String word, Parsed (Parser::*next)())
    {
        Restriction all;
        all.kind = kind;
        do {
            Parsed one = (this->*next)();
            if (!one)
                return std::nullopt;
            all.operands.push_back(std::move(*one));
        } while (takeWord(word));
        if (all.operands.size() > 1)
            return all;
        Restriction only = std::move(all.operands.front());
        return only;
    }

    Parsed operand()
    {
        if (!take(QLatin1String("(")))
            return comparison();
        if (++m_nesting > deepestNesting)
            return std::nullopt;
        Parsed inner = anyOf();
        --m_nesting;
        return take(QLatin1String(")")) ? inner : std::nullopt;
    }

    Parsed comparison()
    {
        Restriction result;
        if (!take(QLatin1String("[")))
            return std::nullopt;
        const std::optional<QString> property = until(QLatin1Char(']'));
        const std::optional<Operator> sign = operatorSign();
        std::optional<PropertyValue> operandValue = value();
        if (!property || !sign || !operandValue)
            return std::nullopt;
        result.property = property->trimmed();
        result.comparison = *sign;
        result.value = std::move(*operandValue);
        return result;
    }

    std::optional<Operator> operatorSign()
    {
        for (const OperatorSign &known : operatorSigns) {
            if (take(known.sign))
                return known.comparison;
        }
        return std::nullopt;
    }

    std::optional<PropertyValue> value()
    {
        if (takeWord(QLatin1String("true")))
            return PropertyValue(true);
        if (takeWord(QLatin1String("false")))
            return PropertyValue(false);
        if (take(QLatin1String("\"")))
            return text(QLatin1Char('"'));
        if (take(QLatin1String("'")))
            return text(QLatin1Char('\''));
        take(QLatin1String("<"));
        return number();
    }

    std::optional<PropertyValue> text(QLatin1Char quote)
    {
        const std::optional<QString> found = until(quote);
        return found ? std::optional<PropertyValue>(*found) : std::nullopt;
    }

    std::optional<PropertyValue> number()
    {
        skipBlanks();
        const int begin = m_at;
        if (m_at < m_text.size() && m_text.at(m_at) == QLatin1Char('-'))
            ++m_at;
        while (m_at < m_text.size() && (isDigit(m_text.at(m_at)) || m_text.at(m_at) == QLatin1Char('.')))
            ++m_at;
        bool isNumber = false;
        const double number = m_text.midRef(begin, m_at - begin).toDouble(&isNumber);
        return isNumber ? std::optional<PropertyValue>(number) : std::nullopt;
    }

    void skipBlanks()
    {
        while (m_at < m_text.size() && m_text.at(m_at).isSpace())
            ++m_at;
    }

    bool take(QLatin1String sign)
    {
        skipBlanks();
        if (!m_text.midRef(m_at).startsWith(sign))
            return false;
        m_at += sign.size();
        return true;
    }

    bool takeWord(QLatin1String word)
    {
        skipBlanks();
        const int end = m_at + word.size();
        if (!m_text.midRef(m_at).startsWith(word, Qt::CaseInsensitive)
            || (end < m_text.size() && m_text.at(end).isLetterOrNumber()))
            return false;
        m_at = end;
        return true;
    }

    /// What stands before the next @p end, which is taken, too.
    std::optional<QString> until(QLatin1Char end)
    {
        const int place = m_text.indexOf(end, m_at);
        if (place < 0)
            return std::nullopt;
        const int begin = m_at;
        m_at = place + 1;
        return m_text.mid(begin, place - begin);
    }

    const QString &m_text;
    int m_at = 0;
    int m_nesting = 0;
};

} // namespace

std::optional<Restriction> parseRestriction(const QString &text)
{
    return text.size() <= longestText ? Parser(text).parse() : std::nullopt;
}

} // namespace platform
