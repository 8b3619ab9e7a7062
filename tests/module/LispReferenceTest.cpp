// The LISP reference in docs/ documents every row of the function table, in table order
// and spelling, each with its function code, so neither can change without the other.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>

#include "module/LispFunctionTable.h"

namespace ardo {
namespace {

struct Heading {
    int code;
    std::string name;
};

// The reference's function headings: "### 12 `kemb_getlayername`".
std::vector<Heading> referenceHeadings() {
    std::ifstream in(ARDO_SOURCE_DIR "/docs/lisp-reference.md", std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    std::vector<Heading> headings;
    const std::regex heading(R"(\n### (\d+) `([^`]+)`)");
    for (auto it = std::sregex_iterator(text.begin(), text.end(), heading); it != std::sregex_iterator(); ++it)
        headings.push_back({std::stoi((*it)[1]), (*it)[2]});
    return headings;
}

TEST(LispReference, DocumentsEveryTableRowInOrderWithItsCode) {
    const auto table = lispFunctionTable();
    const std::vector<Heading> headings = referenceHeadings();
    ASSERT_EQ(headings.size(), table.size()) << "one heading per row of the function table";
    for (size_t code = 0; code < table.size(); ++code) {
        EXPECT_EQ(headings[code].name, table[code].name) << "code " << code;
        EXPECT_EQ(headings[code].code, int(code)) << table[code].name;
    }
}

}  // namespace
}  // namespace ardo
