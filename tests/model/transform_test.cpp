#include <numeric>

#include "math/geometry.h"

namespace {

using Transform = KOVAAssemblyComponentTransform;

TEST(Transform, StoresAndHandsOutByRowAndByColumn) {
    float rows[12], columns[16], out[16];
    std::iota(rows, rows + 12, 1.0F);
    std::iota(columns, columns + 16, 1.0F);
    double m[12];
    Transform transform;
    EXPECT_TRUE(transform.Set3x4ByRow(rows) == 0 && transform.Get(m) == 0);
    EXPECT_THAT(m, testing::ElementsAre(1, 5, 9, 2, 6, 10, 3, 7, 11, 4, 8, 12));
    EXPECT_EQ(transform.Get4x4ByRow(out), 0);
    EXPECT_THAT(out, testing::ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0, 0, 0, 1));
    EXPECT_EQ(transform.Get4x4ByColumn(out), 0);
    EXPECT_THAT(out, testing::ElementsAre(1, 5, 9, 0, 2, 6, 10, 0, 3, 7, 11, 0, 4, 8, 12, 1));
    EXPECT_TRUE(transform.Set4x4ByColumn(columns) == 0 && transform.GetRotation(m) == 0 &&
                transform.GetTranslation(m + 9) == 0);
    EXPECT_THAT(m, testing::ElementsAre(1, 2, 3, 5, 6, 7, 9, 10, 11, 13, 14, 15));
    Transform copy;
    EXPECT_TRUE(copy.SetTranslation(m + 9) == 0 && copy.SetRotation(m) == 0 && copy.Get4x4ByColumn(out) == 0);
    EXPECT_THAT(out, testing::ElementsAre(1, 2, 3, 0, 5, 6, 7, 0, 9, 10, 11, 0, 13, 14, 15, 1));
    Numbers const results = {copy.Get(nullptr),
                             copy.Set(nullptr),
                             copy.GetRotation(nullptr),
                             copy.SetRotation(nullptr),
                             copy.GetTranslation(nullptr),
                             copy.SetTranslation(nullptr),
                             copy.Set3x4ByRow(nullptr),
                             copy.Set4x4ByColumn(nullptr),
                             copy.Get4x4ByRow(nullptr),
                             copy.Get4x4ByColumn(nullptr),
                             Transform().ApplyTransform(nullptr),
                             copy.ApplyRotation(nullptr)};
    EXPECT_THAT(results, testing::Each(0x0100000B));
}

/// Valid, identity, mirror.
std::string flags(Transform const& t) {
    return std::string(t.IsValid() ? "v" : "") + (t.IsIdentityTransform() ? "i" : "") +
           (t.IsMirrorTransform() ? "m" : "");
}

TEST(Transform, IsClassifiedAnewAfterEachChange) {
    Transform transform;
    double determinant = 0.0, scale = 0.0;
    EXPECT_TRUE(transform.GetDeterminant(determinant) == 0 && determinant == 1.0 && flags(transform) == "vi");
    EXPECT_TRUE(transform.SetScale(2.0) == 0 && flags(transform) == "vi");
    struct {
        int element;
        double by;
        char const* expected;
    } const rows[] = {{9, 5e-7, "vi"}, {9, 1e-6, "v"},   {11, -1e-6, "v"}, {8, -2.0, "vm"},  {0, -1.0, ""},
                      {4, 9e-7, "vi"}, {4, 1.1e-6, "v"}, {1, -1e-6, "v"},  {6, 9.9e-7, "vi"}};
    for (auto const& row : rows) {
        double m[12];
        Transform().Get(m);
        m[row.element] += row.by;
        transform.Set(m);
        EXPECT_EQ(flags(transform), row.expected) << row.element << " " << row.by;
        Transform copy(transform), assigned;
        assigned = transform;
        EXPECT_EQ(flags(copy) + " " + flags(assigned), std::string(row.expected) + " " + row.expected);
        float p[] = {1, 2, 4};
        EXPECT_EQ(transform.ApplyTransform(p), 0);
        if (row.element == 8 || transform.IsIdentityTransform()) {
            EXPECT_THAT(p, testing::ElementsAre(1, 2, row.element == 8 ? -4 : 4));
        }
    }
    EXPECT_TRUE(Transform(transform).GetScale(scale) == 0 && scale == 2.0);
    EXPECT_TRUE((transform * transform).GetScale(scale) == 0 && scale == 1.0);
}

TEST(Transform, ProductsApplyTheRightOperandFirst) {
    test::Random random(11);
    for (int round = 0; round < 200; ++round) {
        Transform factors[2];
        double product = 1.0;
        for (Transform& factor : factors) {
            KOVAAffine3D const linear = random.isometry();
            double m[12];
            for (int i = 0; i < 9; ++i) m[i] = 1.5 * linear.GetElement(i % 3, i / 3);
            for (int i = 9; i < 12; ++i) m[i] = random.real(10.0);
            factor.Set(m);
            double determinant = 0.0;
            factor.GetDeterminant(determinant);
            EXPECT_NEAR(determinant, 3.375 * linear.Determinant(), 1e-12);
            product *= determinant;
        }
        Transform const both = factors[0] * factors[1];
        double determinant = 0.0;
        both.GetDeterminant(determinant);
        EXPECT_NEAR(determinant, product, 1e-10);
        float p[3], q[3], v[3], origin[3] = {};
        for (int i = 0; i < 3; ++i) p[i] = q[i] = v[i] = random.single(10.0F);
        both.ApplyTransform(p);
        both.ApplyRotation(v);
        both.ApplyTransform(origin);
        factors[1].ApplyTransform(q);
        factors[0].ApplyTransform(q);
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(p[i], q[i], 1e-4F);
            EXPECT_NEAR(p[i] - origin[i], v[i], 1e-4F);
        }
    }
}

} // namespace
