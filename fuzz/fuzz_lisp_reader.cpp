// Feeds arbitrary text to the LISP reader and prints what it read: the reader must
// end every input with forms or a LISP error, never a crash or a hang.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/Printer.h"
#include "cadhost/lisp/Reader.h"
#include "cadhost/lisp/StackGuard.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cadhost::lisp;
    SymbolTable symbols;
    Reader reader(symbols, std::string_view(reinterpret_cast<const char*>(data), size));
    StackScope scope;
    try {
        while (auto form = reader.next()) (void)prin1String(*form);
    } catch (const LispError&) {
        // Malformed input is expected; only crashes count.
    }
    return 0;
}
