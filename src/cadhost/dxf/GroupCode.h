#pragma once
// What kind of value a DXF group code carries; readers of binary DXF and of entity lists
// need it to know how to decode a value.
namespace cadhost {

enum class ValueKind { String, Double, Int16, Int32, Int64, Bool, Handle, Binary };

ValueKind valueKind(int code);

// True for the first coordinate of a point (10..18, 110..112, 1010..1013 and the like),
// whose y and z follow with code + 10 and code + 20.
bool startsPoint(int code);

// Angles (50 to 58): degrees in the file, radians in the lists LISP code reads and writes.
bool isAngleGroup(int code);

// Group codes outside the range DXF defines are refused by the readers.
inline bool isValidGroupCode(int code) { return code >= -5 && code <= 1071; }

}  // namespace cadhost
