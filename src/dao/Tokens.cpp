#include "dao/Tokens.h"

#include "dao/DBEngine.h"

#include <array>

namespace {

bool wordCharacter(QChar c) { return c.isLetterOrNumber() || c == u'_' || c.isSurrogate() || c.isMark(); }

/// Just behind the closing mark of a text that begins at `at`, or -1. A doubled mark does not close.
qsizetype endOfText(QStringView statement, qsizetype at)
{
    const QChar mark = statement[at];
    for (qsizetype i = at + 1; i < statement.size(); ++i) {
        if (statement[i] != mark) continue;
        if (i + 1 == statement.size() || statement[i + 1] != mark) return i + 1;
        ++i;
    }
    return -1;
}

bool decimalDigit(QChar c) { return c >= u'0' && c <= u'9'; }

} // namespace

RuntimeError MalformedText(int number, QStringView statement)
{
    const bool criterion = number == DaoErrorNumber::MalformedCriterion;
    return {number, (criterion ? u"Ошибка в условии поиска: «%1». Проверьте кавычки и скобки."_s
                               : u"Ошибка в тексте запроса: «%1». Проверьте кавычки и скобки."_s)
                        .arg(statement.left(200))};
}

QList<Token> Tokenize(QStringView statement, int malformed)
{
    static constexpr std::array<QStringView, 4> pairs{u"<>", u"<=", u">=", u"!="};
    QList<Token> tokens;
    int depth = 0;
    for (qsizetype at = 0; at < statement.size();) {
        const QChar c = statement[at];
        if (c.isSpace()) {
            ++at;
        } else if (c == u'"' || c == u'\'') {
            const qsizetype end = endOfText(statement, at);
            if (end < 0) throw MalformedText(malformed, statement);
            QString text = statement.sliced(at + 1, end - at - 2).toString();
            if (text.contains(QChar(0))) throw MalformedText(malformed, statement);
            tokens.append({Token::Text, text.replace(QString(2, c), c)});
            at = end;
        } else if (c == u'[') {
            const qsizetype end = statement.indexOf(u']', at);
            if (end <= at + 1) throw MalformedText(malformed, statement);
            const QStringView name = statement.sliced(at + 1, end - at - 1);
            if (name.contains(QChar(0))) throw MalformedText(malformed, statement);
            tokens.append({Token::Name, name.toString()});
            at = end + 1;
        } else if (c == u'?') {
            tokens.append({Token::Parameter, u"?"_s});
            ++at;
        } else if (wordCharacter(c)) {
            qsizetype end = at;
            while (end < statement.size() && wordCharacter(statement[end])) ++end;
            const QStringView word = statement.sliced(at, end - at);
            const bool whole = std::all_of(word.begin(), word.end(), decimalDigit);
            if (whole && end + 1 < statement.size() && statement[end] == u'.' && decimalDigit(statement[end + 1])) {
                for (++end; end < statement.size() && decimalDigit(statement[end]);) ++end;
                tokens.append({Token::Number, statement.sliced(at, end - at).toString()});
            } else {
                tokens.append({Token::Word, word.toString()});
            }
            at = end;
        } else {
            const bool pair = std::find(pairs.begin(), pairs.end(), statement.sliced(at).left(2)) != pairs.end();
            const QStringView symbol = statement.sliced(at, pair ? 2 : 1);
            if (!pair && !QStringView(u"(),.;=<>+-*/&").contains(c)) throw MalformedText(malformed, statement);
            if (c == u'(') ++depth;
            if (c == u')' && --depth < 0) throw MalformedText(malformed, statement);
            tokens.append({Token::Symbol, symbol.toString()});
            at += symbol.size();
        }
    }
    if (depth != 0) throw MalformedText(malformed, statement);
    while (!tokens.isEmpty() && malformed == DaoErrorNumber::MalformedStatement && tokens.last().is(u";"))
        tokens.removeLast();
    for (const Token& token : tokens)
        if (token.is(u";")) throw MalformedText(malformed, statement);
    return tokens;
}
