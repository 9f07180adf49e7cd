#include "Placement.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include <kova/math/KOVAAffine3D.h>
#include <kova/system/KOVAFloatUtil.h>

#include "characters.h"

namespace toolkit {

namespace {

constexpr std::string_view kRotate = "rotate";

/// Those of the whole text; none at all where anything else stands there.
std::vector<double> numbersOf(std::string_view text) {
    std::vector<double> numbers;
    char const* at = text.data();
    char const* const end = at + text.size();
    while (at != end) {
        if (isSpace(*at) || *at == ',') {
            ++at;
            continue;
        }
        double value = 0;
        char const* const stop = KOVAFloatUtil::read(at, end, value);
        if (stop == at || !std::isfinite(value))
            return {};
        numbers.push_back(value);
        at = stop;
    }
    return numbers;
}

/// Sine and cosine; exact for quarter turns, which no number of radians is.
std::pair<double, double> sineAndCosine(double degrees) {
    double const turned = std::fmod(degrees, 360.0);
    double const quarter = turned / 90.0;
    if (quarter == std::floor(quarter)) {
        constexpr double kSines[] = {0.0, 1.0, 0.0, -1.0};
        std::size_t const at = static_cast<std::size_t>(quarter + 4.0) % 4;
        return {kSines[at], kSines[(at + 1) % 4]};
    }
    double const radians = turned * (3.14159265358979323846 / 180.0);
    return {std::sin(radians), std::cos(radians)};
}

/// About an axis that is not zero: Rodrigues' formula.
KOVAAffine3D rotation(double x, double y, double z, double degrees) {
    // Components of any size have a length that is a number.
    double const largest = std::max({std::abs(x), std::abs(y), std::abs(z)});
    double const length = std::hypot(x / largest, y / largest, z / largest);
    x = x / largest / length;
    y = y / largest / length;
    z = z / largest / length;
    auto const [s, c] = sineAndCosine(degrees);
    double const t = 1.0 - c;
    return {t * x * x + c,     t * x * y - s * z, t * x * z + s * y, //
            t * x * y + s * z, t * y * y + c,     t * y * z - s * x, //
            t * x * z - s * y, t * y * z + s * x, t * z * z + c};
}

/// The linear part.
KOVAAffine3D affineOf(KOVAAssemblyComponentTransform const& placement) {
    double m[9];
    placement.GetRotation(m);
    return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}

/// What takes normals along: the transposed inverse.
KOVAAffine3D normalMap(KOVAAssemblyComponentTransform const& placement) {
    KOVAAffine3D map;
    affineOf(placement).GetInverse(map);
    map.Transpose();
    return map;
}

void placeNormals(float* normals, int count, KOVAAssemblyComponentTransform const& placement) {
    KOVAAffine3D const map = normalMap(placement);
    for (float* n = normals; n != normals + 3 * static_cast<long>(count); n += 3) {
        double v[3] = {double{n[0]}, double{n[1]}, double{n[2]}};
        TransformPoints(map, v, 1);
        double const length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
        for (int i = 0; i < 3 && length > 0; ++i)
            n[i] = static_cast<float>(v[i] / length);
    }
}

void placeExactly(float* points, int count, double const (&m)[12]) {
    for (float* p = points; p != points + 3 * static_cast<long>(count); p += 3) {
        double const v[3] = {double{p[0]}, double{p[1]}, double{p[2]}};
        for (int i = 0; i < 3; ++i)
            p[i] = static_cast<float>(m[i] * v[0] + m[3 + i] * v[1] + m[6 + i] * v[2] + m[9 + i]);
    }
}

} // namespace

bool readPlacement(std::string_view text, KOVAAssemblyComponentTransform& placement) {
    text = trimmed(text);
    bool const isRotation = equalsIgnoringCase(text.substr(0, kRotate.size()), kRotate);
    std::vector<double> const n = numbersOf(isRotation ? text.substr(kRotate.size()) : text);
    if (n.size() != (isRotation ? 4U : 12U))
        return false;
    KOVAAffine3D const linear = isRotation ? rotation(n[0], n[1], n[2], n[3])
                                           : KOVAAffine3D(n[0], n[1], n[2], n[4], n[5], n[6], n[8], n[9], n[10]);
    double columns[12] = {};
    for (int column = 0; column < 3; ++column)
        linear.GetColumn(column, columns + std::ptrdiff_t{3} * column);
    for (std::size_t row = 0; row < 3 && !isRotation; ++row)
        columns[9 + row] = n[4 * row + 3];
    placement.Set(columns);
    double determinant = 0;
    placement.GetDeterminant(determinant);
    return std::isfinite(determinant) && placement.IsValid();
}

void place(KOVASurfacicShell& shell, KOVAAssemblyComponentTransform const& placement) {
    double m[12];
    placement.Get(m);
    constexpr double kIdentity[12] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    if (std::equal(std::begin(m), std::end(m), std::begin(kIdentity)))
        return;
    int count = 0;
    float* points = nullptr;
    shell.GetPoints(count, points);
    // What is nearly the identity leaves points as they are, and yet a user may mean it.
    if (placement.IsIdentityTransform())
        placeExactly(points, count, m);
    else
        TransformPoints(placement, points, count);
    float* normals = nullptr;
    shell.GetNormals(count, normals);
    if (count > 0)
        placeNormals(normals, count, placement);
    int* faces = nullptr;
    shell.GetFaces(count, faces);
    for (int i = 0; i + 2 < count && placement.IsMirrorTransform(); i += 3)
        std::swap(faces[i + 1], faces[i + 2]);
}

} // namespace toolkit
