#include <gtest/gtest.h>

#include "cadhost/lisp/Wildcard.h"

namespace cadhost::lisp {
namespace {

TEST(Wildcard, SingleCharacterClasses) {
    EXPECT_TRUE(wildcardMatch("A1", "@#"));
    EXPECT_FALSE(wildcardMatch("AB", "@#"));
    EXPECT_TRUE(wildcardMatch("Ä-", "@."));
    EXPECT_FALSE(wildcardMatch("A1", "@."));
    EXPECT_TRUE(wildcardMatch("abc", "a?c"));
    EXPECT_FALSE(wildcardMatch("ac", "a?c"));
}

TEST(Wildcard, StarsAlternativesAndNegation) {
    EXPECT_TRUE(wildcardMatch("Wand-Außen", "Wand*"));
    EXPECT_TRUE(wildcardMatch("", "*"));
    EXPECT_TRUE(wildcardMatch("xaybz", "*a*b*"));
    EXPECT_FALSE(wildcardMatch("xaybz", "*b*a*"));
    EXPECT_TRUE(wildcardMatch("ARC", "LINE,ARC"));
    EXPECT_FALSE(wildcardMatch("CIRCLE", "LINE,ARC"));
    EXPECT_TRUE(wildcardMatch("Dach", "~Wand*"));
    EXPECT_FALSE(wildcardMatch("Wand1", "~Wand*"));
}

TEST(Wildcard, BracketsAndEscapes) {
    EXPECT_TRUE(wildcardMatch("B", "[ABC]"));
    EXPECT_FALSE(wildcardMatch("D", "[ABC]"));
    EXPECT_TRUE(wildcardMatch("m", "[a-z]"));
    EXPECT_TRUE(wildcardMatch("D", "[~ABC]"));
    EXPECT_FALSE(wildcardMatch("A", "[~ABC]"));
    EXPECT_TRUE(wildcardMatch("a,b", "a`,b"));
    EXPECT_TRUE(wildcardMatch("*", "`*"));
    EXPECT_FALSE(wildcardMatch("x", "`*"));
    EXPECT_TRUE(wildcardMatch("1", "[,1]"));
}

TEST(Wildcard, CaseSensitivityIsTheCallersChoice) {
    EXPECT_FALSE(wildcardMatch("wand", "W*"));
    EXPECT_TRUE(wildcardMatch("wand", "W*", true));
    EXPECT_TRUE(wildcardMatch("äußen", "ÄU*", true));
    // Layer patterns fold as layer names do, Š and Ÿ included.
    EXPECT_TRUE(wildcardMatch("štab-ÿ", "ŠTAB-Ÿ", true));
    EXPECT_FALSE(wildcardMatch("štab", "ŠTAB", false));
    EXPECT_TRUE(wildcardMatch("m", "[A-Z]", true));
}

}  // namespace
}  // namespace cadhost::lisp
