#pragma once

namespace translator {

/// What becomes of triangles without area.
enum class Degenerate { Keep, Drop, Fail };

/// How a model is translated.
struct Settings {
    bool ascii = false;       ///< STL is written as text
    int digits = 0;           ///< of numbers in text, up to 17; 0 for the fewest that keep each exactly
    double weldTolerance = 0; ///< in units of the model; where vertices are shared, so near ones are one
    Degenerate degenerate = Degenerate::Keep;
};

} // namespace translator
