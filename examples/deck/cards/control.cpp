#include "cards/declaration.h"

namespace qzDeck {

void DeclareControl(CardDeclarations& cards) {
    cards.Declare("PARAM", "Parameter of the analysis",
                  {
                      Text("N", "Name").Required(),
                      Anything("V1", "Value").Required(),
                      Real("V2", "Imaginary part of the value"),
                  });
    cards.Declare("DESVAR", "Variable of an optimisation",
                  {
                      Id("ID", "Number of the variable"),
                      Text("LABEL", "Name").Required(),
                      Real("XINIT", "Value to begin with").Required(),
                      Real("XLB", "Lower limit").Default(-1e20),
                      Real("XUB", "Upper limit").Default(1e20),
                      Real("DELXV", "Greatest change in one step, as a part of the value").Above(0),
                      Integer("DDVAL", "List of the values it may take").AtLeast(0),
                  });
    cards.Declare("EIGRL", "Search for natural frequencies",
                  {
                      Id("SID", "Set number"),
                      Real("V1", "Lowest frequency, or load factor", unit::frequency),
                      Real("V2", "Highest frequency, or load factor", unit::frequency),
                      Integer("ND", "How many are sought").Above(0),
                      Integer("MSGLVL", "How much is told about the search").AtLeast(0).AtMost(4).Default(0),
                      Integer("MAXSET", "Vectors at a time").AtLeast(1).AtMost(15),
                      Real("SHFSCL", "Estimate of the first frequency", unit::frequency),
                      Choice("NORM", "How shapes are scaled", {"MASS", "MAX"}),
                  });
}

} // namespace qzDeck
