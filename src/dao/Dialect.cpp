#include "dao/Dialect.h"

#include "dao/Collation.h"
#include "dao/DBEngine.h"
#include "dao/Tokens.h"

#include <QSet>
#include <optional>

using DaoErrorNumber::MalformedCriterion;
using DaoErrorNumber::MalformedStatement;

namespace {

const QSet<QString>& keywords()
{
    static const QSet<QString> words{
        u"SELECT"_s, u"DISTINCT"_s, u"ALL"_s,  u"FROM"_s,  u"WHERE"_s,  u"GROUP"_s, u"HAVING"_s, u"ORDER"_s,
        u"BY"_s,     u"ASC"_s,      u"DESC"_s, u"LIMIT"_s, u"OFFSET"_s, u"UNION"_s, u"EXCEPT"_s, u"INTERSECT"_s,
        u"AND"_s,    u"OR"_s,       u"NOT"_s,  u"LIKE"_s,  u"IN"_s,     u"IS"_s,    u"NULL"_s,   u"BETWEEN"_s,
        u"EXISTS"_s, u"CASE"_s,     u"WHEN"_s, u"THEN"_s,  u"ELSE"_s,   u"END"_s,   u"AS"_s,     u"ON"_s,
        u"JOIN"_s,   u"INNER"_s,    u"LEFT"_s, u"OUTER"_s, u"UPDATE"_s, u"SET"_s,   u"INSERT"_s, u"INTO"_s,
        u"VALUES"_s, u"DELETE"_s,   u"TRUE"_s, u"FALSE"_s, u"COLLATE"_s};
    return words;
}

const QSet<QString>& functions()
{
    static const QSet<QString> names{u"COUNT"_s,  u"SUM"_s,    u"MIN"_s,  u"MAX"_s,    u"AVG"_s,     u"ABS"_s,
                                     u"ROUND"_s,  u"LENGTH"_s, u"TRIM"_s, u"SUBSTR"_s, u"INSTR"_s,   u"REPLACE"_s,
                                     u"IFNULL"_s, u"NULLIF"_s, u"DATE"_s, u"TYPEOF"_s, u"COALESCE"_s};
    return names;
}

bool aggregate(const QString& function)
{
    return function == u"COUNT" || function == u"SUM" || function == u"MIN" || function == u"MAX" || function == u"AVG";
}

bool comparison(const Token& token)
{
    return token.kind == Token::Symbol &&
           (token.text == u"=" || token.text == u"<>" || token.text == u"!=" || token.text == u"<" ||
            token.text == u"<=" || token.text == u">" || token.text == u">=");
}

QString quotedText(QString text) { return u'\'' + text.replace(u'\'', u"''"_s) + u'\''; }

bool numeric(const QString& word)
{
    return std::all_of(word.begin(), word.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// What a token stands for in its statement.
enum class Role { Plain, Keyword, Function, Table, Alias, Field, Qualifier };

/// Translation of one text: first the role of every token, then its words in SQLite's dialect.
class Translation {
public:
    Translation(QStringView statement, int malformed, Names& names)
        : m_statement(statement), m_malformed(malformed), m_names(names), m_tokens(Tokenize(statement, malformed)),
          m_roles(m_tokens.size(), Role::Plain)
    {}

    SelectSql select()
    {
        if (m_tokens.isEmpty() || !m_tokens[0].isWord(u"SELECT")) malformed();
        assignRoles();
        SelectSql sql;
        sql.sources = m_sources;
        sql.keyset = keyset();
        // The clauses of the outermost SELECT are told apart so that keys and rows can be asked for on their own.
        QString* clause = &sql.list;
        int depth = 0;
        for (qsizetype i = 1; i < m_tokens.size(); ++i) {
            const Token& token = m_tokens[i];
            if (token.is(u"(")) ++depth;
            if (token.is(u")")) --depth;
            if (depth == 0 && m_roles[i] == Role::Keyword && clause != &sql.order) {
                if (token.isWord(u"FROM")) {
                    clause = &sql.from;
                    continue;
                }
                if (token.isWord(u"WHERE")) {
                    clause = &sql.where;
                    continue;
                }
                for (QStringView word : {u"ORDER", u"GROUP", u"HAVING", u"LIMIT", u"UNION", u"EXCEPT", u"INTERSECT"})
                    if (token.isWord(word)) clause = &sql.order;
            }
            *clause += u' ' + words(i);
        }
        if (sql.list.isEmpty()) malformed();
        return sql;
    }

    ActionSql action()
    {
        if (m_tokens.isEmpty()) malformed();
        const Token& verb = m_tokens[0];
        if (!verb.isWord(u"UPDATE") && !verb.isWord(u"INSERT") && !verb.isWord(u"DELETE")) malformed();
        m_selects = 1;
        assignRoles();
        if (m_scope.isEmpty()) malformed();
        return {m_scope.first().table, all()};
    }

    QString criterion(const QList<Source>& sources)
    {
        m_sources = m_scope = sources;
        m_selects = 1;
        if (m_tokens.isEmpty()) malformed();
        assignRoles();
        return all();
    }

private:
    struct Level {
        bool inFrom = false;      ///< commas separate tables
        bool expectTable = false; ///< the next name is a table
        bool afterTable = false;  ///< the next name is its alias
    };

    [[noreturn]] void malformed() const { throw MalformedText(m_malformed, m_statement); }

    const Token* token(qsizetype i) const { return i >= 0 && i < m_tokens.size() ? &m_tokens[i] : nullptr; }
    bool symbolAt(qsizetype i, QStringView symbol) const { return token(i) && token(i)->is(symbol); }

    void assignRoles()
    {
        QList<Level> levels(1);
        for (qsizetype i = 0; i < m_tokens.size(); ++i) {
            const Token& t = m_tokens[i];
            Level& level = levels.last();
            if (t.is(u"(")) {
                if (level.expectTable) m_derived = true;
                level.expectTable = level.afterTable = false;
                levels.append(Level{});
            } else if (t.is(u")")) {
                levels.removeLast();
                levels.last().afterTable = false;
            } else if (t.is(u",")) {
                level.expectTable = level.inFrom;
                level.afterTable = false;
            } else if (t.kind == Token::Word || t.kind == Token::Name) {
                nameOrKeyword(i, level, levels.size() == 1);
            } else {
                level.afterTable = false;
            }
        }
    }

    void nameOrKeyword(qsizetype i, Level& level, bool outermost)
    {
        const Token& t = m_tokens[i];
        const bool qualified = symbolAt(i - 1, u".");
        if (level.expectTable) {
            m_roles[i] = Role::Table;
            level.expectTable = false;
            level.afterTable = true;
            m_scope.append({m_names.tableNamed(t.text), {}});
            if (outermost) m_sources.append(m_scope.last());
            return;
        }
        if (t.kind == Token::Word && !qualified && keywords().contains(t.text.toUpper())) {
            m_roles[i] = Role::Keyword;
            keyword(t.text.toUpper(), level);
        } else if (level.afterTable) {
            m_roles[i] = Role::Alias;
            level.afterTable = false;
            m_scope.last().alias = t.text;
            if (outermost) m_sources.last().alias = t.text;
        } else if (symbolAt(i + 1, u".")) {
            m_roles[i] = Role::Qualifier;
        } else if (t.kind == Token::Word && symbolAt(i + 1, u"(")) {
            m_roles[i] = Role::Function;
            if (!functions().contains(t.text.toUpper()))
                throw RuntimeError(DaoErrorNumber::UndefinedFunction,
                                   u"В запросе неизвестная функция «%1»."_s.arg(t.text));
        } else if (t.kind == Token::Name || qualified || !numeric(t.text)) {
            m_roles[i] = Role::Field;
        }
    }

    void keyword(const QString& word, Level& level)
    {
        if (word == u"SELECT") ++m_selects;
        if (word == u"FROM" || word == u"JOIN" || word == u"INTO" || word == u"UPDATE") {
            level.expectTable = true;
            level.inFrom = word == u"FROM" || word == u"JOIN";
        } else if (word != u"AS" && word != u"INNER" && word != u"LEFT" && word != u"OUTER" && word != u"ON" &&
                   word != u"AND" && word != u"OR" && word != u"NOT") {
            level.inFrom = false;
        }
        if (word != u"AS") level.afterTable = false;
    }

    /// Whether the rows are those of the tables: no DISTINCT, groups, unions, aggregates, outer joins, derived tables.
    bool keyset() const
    {
        if (m_sources.isEmpty() || m_derived) return false;
        int depth = 0;
        bool inList = true, inOrder = false;
        for (qsizetype i = 1; i < m_tokens.size(); ++i) {
            const Token& t = m_tokens[i];
            if (t.is(u"(")) ++depth;
            if (t.is(u")")) --depth;
            if (inList && (t.kind == Token::Parameter || (m_roles[i] == Role::Function && aggregate(t.text.toUpper()))))
                return false;
            if (inOrder && depth == 0 && t.kind == Token::Word && m_roles[i] == Role::Plain &&
                (m_tokens[i - 1].isWord(u"BY") || m_tokens[i - 1].is(u",")))
                return false; // ORDER BY 1
            if (m_roles[i] != Role::Keyword || (depth != 0 && !inList)) continue;
            for (QStringView word : {u"DISTINCT", u"GROUP", u"HAVING", u"UNION", u"EXCEPT", u"INTERSECT", u"LEFT"})
                if (t.isWord(word)) return false;
            if (inList && t.isWord(u"AS")) return false;
            if (depth == 0 && t.isWord(u"FROM")) inList = false;
            if (t.isWord(u"ORDER")) inOrder = true;
            if (t.isWord(u"LIMIT")) inOrder = false;
        }
        return true;
    }

    QString all() const
    {
        QString sql;
        for (qsizetype i = 0; i < m_tokens.size(); ++i) sql += (i == 0 ? u""_s : u" "_s) + words(i);
        return sql;
    }

    QString words(qsizetype i) const
    {
        const Token& t = m_tokens[i];
        switch (m_roles[i]) {
        case Role::Table: return QuotedName(m_names.tableNamed(t.text));
        case Role::Alias: return QuotedName(t.text);
        case Role::Qualifier: return qualifier(t.text);
        case Role::Field: return field(i);
        case Role::Function: return t.text;
        case Role::Keyword:
            if (t.isWord(u"TRUE")) return u"-1"_s;
            if (t.isWord(u"FALSE")) return u"0"_s;
            return t.text;
        case Role::Plain: break;
        }
        switch (t.kind) {
        case Token::Text: return quotedText(t.text) + collated(i);
        case Token::Parameter: return u"?"_s + collated(i);
        case Token::Symbol:
            if (t.text == u"&") return u"||"_s;
            // Today is the program's, see Connection.
            if (t.is(u"(") && i > 0 && m_tokens[i - 1].isWord(u"DATE") && symbolAt(i + 1, u")"))
                return u"('now','localtime'"_s;
            return t.text;
        default: return t.text;
        }
    }

    /// Two texts of which none is a field are compared in the program's order, too.
    QString collated(qsizetype i) const
    {
        const bool compared = (token(i - 1) && comparison(*token(i - 1))) ||
                              (token(i + 1) && comparison(*token(i + 1)));
        return compared ? u" COLLATE "_s + QLatin1StringView(CollationName) : QString();
    }

    const Source* sourceNamed(const QString& name) const
    {
        for (const Source& source : m_scope)
            if (source.alias.compare(name, Qt::CaseInsensitive) == 0 ||
                (source.alias.isEmpty() && source.table.compare(name, Qt::CaseInsensitive) == 0))
                return &source;
        return nullptr;
    }

    QString qualifier(const QString& name) const
    {
        const Source* source = sourceNamed(name);
        return source ? source->sql() : QuotedName(name);
    }

    QString field(qsizetype i) const
    {
        const QString& name = m_tokens[i].text;
        const bool qualified = symbolAt(i - 1, u".");
        const Source* owner = qualified && token(i - 2) ? sourceNamed(token(i - 2)->text) : nullptr;
        std::optional<QString> found;
        for (const Source& source : m_scope) {
            if (owner && owner != &source) continue;
            for (const QString& real : m_names.fieldsOf(source.table)) {
                if (real.compare(name, Qt::CaseInsensitive) != 0) continue;
                // A field that two tables have is the first one's; within subqueries SQLite knows the scopes.
                if (found && !qualified && m_selects <= 1) return *found;
                if (!found)
                    found = m_scope.size() > 1 && m_selects <= 1 && !qualified ? source.sql() + u'.' + QuotedName(real)
                                                                               : QuotedName(real);
            }
        }
        return found.value_or(QuotedName(name));
    }

    QStringView m_statement;
    int m_malformed;
    Names& m_names;
    QList<Token> m_tokens;
    QList<Role> m_roles;
    QList<Source> m_sources; ///< of the outermost SELECT
    QList<Source> m_scope;   ///< of all
    int m_selects = 0;       ///< with the one whose rows a criterion or an action is about
    bool m_derived = false;
};

} // namespace

QString QuotedName(const QString& name) { return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"'; }

QString Source::sql() const { return QuotedName(alias.isEmpty() ? table : alias); }

QString SelectSql::rows() const
{
    return u"SELECT"_s + list + (from.isEmpty() ? QString() : u" FROM"_s + from) +
           (where.isEmpty() ? QString() : u" WHERE"_s + where) + order;
}

QString SelectSql::keys(const QString& criterion) const
{
    QStringList rowids;
    for (const Source& source : sources) rowids += source.sql() + u"._rowid_"_s;
    QString condition = where;
    if (!criterion.isEmpty())
        condition = (where.isEmpty() ? u" ("_s : u" ("_s + where + u") AND ("_s) + criterion + u')';
    return u"SELECT "_s + rowids.join(u',') + u" FROM"_s + from +
           (condition.isEmpty() ? QString() : u" WHERE"_s + condition) + (criterion.isEmpty() ? order : QString());
}

QString SelectSql::rowByKeys() const
{
    QStringList rowids;
    for (const Source& source : sources) rowids += source.sql() + u"._rowid_=?"_s;
    return u"SELECT"_s + list + u" FROM"_s + from + u" WHERE "_s + rowids.join(u" AND "_s);
}

SelectSql TranslateSelect(QStringView statement, Names& names)
{
    return Translation(statement, MalformedStatement, names).select();
}

ActionSql TranslateAction(QStringView statement, Names& names)
{
    return Translation(statement, MalformedStatement, names).action();
}

QString TranslateCriterion(QStringView criterion, const QList<Source>& sources, Names& names)
{
    return Translation(criterion, MalformedCriterion, names).criterion(sources);
}
