#pragma once
// A document's undo history. It records nothing yet: commands and module calls change the
// drawing directly, and U/UNDO are not offered. The document keeps its slot so that the
// history, when it comes, lives and dies with its drawing.
namespace cadhost {

class UndoHistory {};

}  // namespace cadhost
