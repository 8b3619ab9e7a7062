#pragma once
// Area shapes: an area of the drawing written as a polygon shapefile for a GIS, and a block
// inserted to mark it.

namespace ardo::handlers {

// (kemb_MakeAreaShape file area [block point]) -> T, or nil when nothing was exported.
//   file   the shapefile, "name.shp" (".shx", ".dbf" and ".cpg" are written beside it); the
//          extension may be left out. An existing shapefile of that name is replaced.
//   area   an entity name of a closed polyline or circle, or a selection set of them; other
//          objects of the set are left out (the host says how many)
//   block  optional: a block of the drawing, inserted at `point` once the area is exported
//   point  the insertion point, required with `block`
// The export runs the host's map export on the command line ("_.-MAPEXPORT" "_SHP" file
// area ""), the insertion its "_.INSERT" (block point, scale 1, rotation 0).
int kemb_MakeAreaShape();

}  // namespace ardo::handlers
