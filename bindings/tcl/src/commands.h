#pragma once

#include "words.h"

#include "descriptor/Forward.h"

namespace qzTcl {

/// One call of `qz`, and what its words name. Whatever is not there throws, with the reason.
class Call {
public:
    /// The words behind the name of the subcommand.
    explicit Call(Words words) : m_words(words) {}

    bool Has(std::size_t place) const { return place < m_words.size(); }
    Tcl_Obj* GetWord(std::size_t place) const { return m_words[place]; }
    /// Empty for a word that is not there.
    qzString GetText(std::size_t place) const;

    /// The session that scripts have.
    ISession& GetSession() const;
    MetaclassMgr& GetRegistry() const;
    unsigned int GetMetaclass(std::size_t place) const;
    EntityFullType GetType(std::size_t place) const;
    Metaobject const& GetObject(std::size_t place) const;
    /// An attribute of the object by its name, or by its number where none has that name.
    Identifier GetAttribute(Metaobject const& object, std::size_t place) const;
    /// Likewise; one that the object does not have is given by its name.
    Identifier GetAction(Metaobject const& object, std::size_t place) const;

private:
    Words m_words;
};

struct Command {
    char const* name; // first: Tcl looks for it there
    std::size_t least;
    std::size_t most;
    char const* usage; ///< what follows the name
    Tcl_Obj* (*run)(Call const& call);
};

/// All that `qz` can do, with a row without a name behind the last.
Command const* AllCommands();

} // namespace qzTcl
