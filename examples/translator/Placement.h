#pragma once

#include <string_view>

#include <kova/model/KOVAAssemblyComponentTransform.h>
#include <kova/model/KOVASurfacicShell.h>

namespace toolkit {

/// The placement that a text describes: twelve numbers, three rows of a matrix with the translation behind each; or
/// "rotate X Y Z DEGREES", about the axis through the origin, counterclockwise as seen from its tip. Numbers stand
/// between blanks or commas. False for anything else, and for what has no volume left.
bool readPlacement(std::string_view text, KOVAAssemblyComponentTransform& placement);

/// Puts a shell in its place: points, and normals, which stay of length 1. A mirrored one has its triangles turned, so
/// that their outside stays outside.
void place(KOVASurfacicShell& shell, KOVAAssemblyComponentTransform const& placement);

} // namespace toolkit
