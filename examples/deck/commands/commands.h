#pragma once

/// What the program does, one function for each command. They answer the exit status.

#include <string>

namespace qzDeck {

inline constexpr int s_success = 0;
inline constexpr int s_findings = 1; ///< a deck that is not as it should be
inline constexpr int s_failure =
    2; ///< a wrong call, a deck that cannot be read, output that cannot be written

/// What the words behind a command say. Each command has its own among them.
struct Arguments {
    std::string deck;
    std::string output;
    std::string card;
    int id = 0;
    bool isMarkdown = false;
    bool isCsv = false;
};

int Show(Arguments const& arguments);
int PrintFacts(Arguments const& arguments);
int Check(Arguments const& arguments);
int Write(Arguments const& arguments);
int DescribeCards(Arguments const& arguments);
int PrintTable(Arguments const& arguments);
int Store(Arguments const& arguments);

} // namespace qzDeck
