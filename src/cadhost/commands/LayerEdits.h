#pragma once
// What the layer command does to the drawing's layers, with the host's rules: the current
// layer cannot be frozen, a frozen layer cannot be made current, new layers get colour 7
// and Continuous. Each edit prints its own messages through the context.
#include <functional>
#include <string>

#include "cadhost/commands/Command.h"
#include "boundary/HostDrawing.h"

namespace cadhost::commands {

// The layer of that name, created first when missing, becomes current. False when the
// name is no valid layer name.
bool makeLayer(Context& context, const std::string& name);
void setCurrentLayer(Context& context, const std::string& name);
// Creates the layers of a comma list; false for an invalid name.
bool newLayers(Context& context, const std::string& list);
// Applies the change to the named layer and writes it back.
using LayerChange = std::function<void(ardo::LayerRecord&)>;
void changeLayer(Context& context, const std::string& name, const LayerChange& change);
// Prints the layers the list matches with their properties.
void listLayers(const Context& context, const std::string& pattern);

}  // namespace cadhost::commands
