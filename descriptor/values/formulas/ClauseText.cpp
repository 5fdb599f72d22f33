#include "values/formulas/ClauseText.h"

#include "values/formulas/ClausePrivate.h"
#include "values/formulas/TextTokens.h"

#include <algorithm>
#include <iterator>

namespace qzDescriptor {

namespace {

struct PartsWriter {
    qzString& text;

    void operator()(IdRange const& range) const {
        AppendNumber(text, range.start);
        text += ' ';
        AppendNumber(text, range.end);
        if (range.step == 1)
            return;
        text += ' ';
        AppendNumber(text, range.step);
    }

    void operator()(IdList const& list) const {
        for (unsigned int const id : list.GetIds()) {
            if (text.back() != '(')
                text += ' ';
            AppendNumber(text, id);
        }
    }

    void operator()(qzString const& name) const { AppendQuoted(text, name); }

    void operator()(Color const& color) const {
        if (unsigned int index = 0; color.GetIndex(index))
            return AppendNumber(text, index);
        unsigned char components[3] = {};
        color.GetRGB(components[0], components[1], components[2]);
        text += '#';
        for (unsigned char const component : components)
            AppendHexByte(text, component);
    }
};

bool ReadNothing(TextReader&, Clause& clause) {
    clause = Clause();
    return true;
}

bool ReadIdRange(TextReader& reader, Clause& clause) {
    unsigned int start = 0;
    unsigned int end = 0;
    if (!reader.TakeNumber(start) || !reader.TakeNumber(end))
        return false;
    unsigned int step = 1;
    reader.TakeNumber(step);
    clause = Clause::FromIdRange(start, end, step);
    return true;
}

bool ReadIdList(TextReader& reader, Clause& clause) {
    qzStlVector<unsigned int> ids;
    for (unsigned int id = 0; reader.TakeNumber(id);)
        ids.push_back(id);
    clause = Clause::FromIdList(ids);
    return true;
}

bool ReadName(TextReader& reader, Clause& clause) {
    qzString name;
    if (!reader.TakeName(name))
        return false;
    clause = Clause::FromName(name);
    return true;
}

bool ReadColor(TextReader& reader, Clause& clause) {
    unsigned char components[3] = {};
    if (reader.TakeHexBytes(components, std::size(components))) {
        clause = Clause::FromColor(Color(components[0], components[1], components[2]));
        return true;
    }
    unsigned int index = 0;
    if (!reader.TakeNumber(index) || index == Color::s_rgbIndex)
        return false;
    clause = Clause::FromColor(Color(index));
    return true;
}

/// A clause is written as a word and, in brackets, its parts.
struct ClauseForm {
    std::string_view word;
    bool (*readParts)(TextReader&, Clause&);
};

// In the order of Clause::Kind.
constexpr ClauseForm s_forms[] = {
    {"none", ReadNothing}, {"range", ReadIdRange}, {"ids", ReadIdList},
    {"name", ReadName},    {"color", ReadColor},
};

} // namespace

bool ReadClause(TextReader& reader, Clause& clause) {
    std::string_view word;
    if (!reader.TakeWord(word) || !reader.TakeSign('('))
        return false;
    auto const* const form = std::ranges::find(s_forms, word, &ClauseForm::word);
    Clause read;
    if (form == std::end(s_forms) || !form->readParts(reader, read) || !reader.TakeSign(')'))
        return false;
    clause = std::move(read);
    return true;
}

qzString Clause::GetAsString() const {
    qzString text(s_forms[GetKind()].word);
    text += '(';
    if (m_private)
        std::visit(PartsWriter{text}, m_private->condition);
    text += ')';
    return text;
}

bool Clause::SetFromString(qzString const& text) {
    TextReader reader(text);
    Clause read;
    if (!ReadClause(reader, read) || !reader.IsAtEnd())
        return false;
    *this = std::move(read);
    return true;
}

} // namespace qzDescriptor
