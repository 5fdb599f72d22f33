#pragma once

/// What the program does, one function for each command. They answer the exit status.

#include <string>
#include <vector>

namespace qzDeck {

inline constexpr int s_success = 0;
inline constexpr int s_findings = 1; ///< a deck that is not as it should be, or something that is refused
inline constexpr int s_failure =
    2; ///< a wrong call, a deck that cannot be read, output that cannot be written

/// What the words behind a command say. Each command has its own among them.
struct Arguments {
    std::string deck;
    std::string output;
    std::string card;
    std::string text;               ///< a query, an action, the path of a script
    std::vector<std::string> words; ///< changes, arguments of an action
    int id = 0;
    int explained = 0; ///< 0 is none
    bool isMarkdown = false;
    bool isCsv = false;
    bool isCount = false;
};

int Show(Arguments const& arguments);
int Summarize(Arguments const& arguments);
int PrintTree(Arguments const& arguments);
int Set(Arguments const& arguments);
int Query(Arguments const& arguments);
int RunAction(Arguments const& arguments);
int RunScript(Arguments const& arguments);
int PrintTypes(Arguments const& arguments);
int PrintMenu(Arguments const& arguments);
int PrintActions(Arguments const& arguments);
int PrintFacts(Arguments const& arguments);
int Check(Arguments const& arguments);
int Write(Arguments const& arguments);
int DescribeCards(Arguments const& arguments);
int PrintTable(Arguments const& arguments);
int Store(Arguments const& arguments);

} // namespace qzDeck
