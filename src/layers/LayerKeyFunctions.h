#pragma once
// LISP handlers of the key rules.
namespace ardo::handlers {

// (kemb_mkLayerKey): a fresh layer key from the clock reading CDATE, as a string.
int kemb_mkLayerKey();

}  // namespace ardo::handlers
