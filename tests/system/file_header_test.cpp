#include "support/test.h"

namespace {

std::string printed(KOVAFileHeader const& header) {
    test::TextStream out;
    KOVAStreamFormatter formatter(&out);
    formatter << header;
    return out.text;
}

TEST(FileHeader, RowsAndSections) {
    KOVAFileHeader header;
    EXPECT_EQ((Numbers{header.GetModelsCount(), header.GetCount()}), (Numbers{1, 0}));
    header.Set(KOVAFileHeader::AUTHOR, "J");
    header.AddSection("Model");
    header.Set("Triangles", 12);
    header.Set(KOVAFileHeader::TOLERANCE, 0.5);
    header.AddSection("Model"); // another one
    header.Set(KOVAFileHeader::AUTHOR, KOVAString("K"));
    header.Set("a name of more than twenty-four characters", true);
    header.Set("nothing", KOVAValue());
    EXPECT_EQ(printed(header), "Author                   : K\nModel\nTriangles                : 12\n"
                               "Tolerance                : 0.500000\nModel\n"
                               "a name of more than twenty-four characters : 1\nnothing                  : \n");
    EXPECT_EQ(header.GetCount(), 7);

    KOVAString name("stale"), text;
    KOVAValue value;
    EXPECT_TRUE(header.Get(1, name, value).IsFailure());
    EXPECT_EQ(test::text(name) + static_cast<char const*>(value), "Model");
    EXPECT_EQ(header.Get(2, name, value), 0);
    EXPECT_TRUE(name == "Triangles" && value == KOVAValue(12));
    EXPECT_TRUE(header.Get("Triangles", text) == 0 && text == "12");
    for (int row : {-1, 7}) EXPECT_EQ(header.Get(row, name, value), 0x0100000B);
    EXPECT_TRUE(header.Get("triangles", value) == 0x01000001 && header.Get("triangles", text) == 0x01000001);
    EXPECT_TRUE(name == "Triangles" && value == KOVAValue(12) && text == "12");
}

TEST(FileHeader, Models) {
    KOVAFileHeader header;
    header.Set(KOVAFileHeader::UNITS, "mm");
    EXPECT_EQ(header.SelectModel(3), 0);
    EXPECT_EQ((Numbers{header.GetModelsCount(), header.GetCount()}), (Numbers{4, 0}));
    header.Set(KOVAFileHeader::UNITS, "inch");
    for (int none : {-1, 65536, std::numeric_limits<int>::max()}) EXPECT_EQ(header.SelectModel(none), 0x0100000B);
    KOVAFileHeader copy(header), assigned;
    assigned = header;
    header.Set(KOVAFileHeader::UNITS, "m");
    EXPECT_EQ(printed(header) + printed(copy) + printed(assigned),
              "Units                    : m\nUnits                    : inch\nUnits                    : inch\n");
    EXPECT_EQ(copy.SelectModel(0), 0);
    EXPECT_EQ(printed(copy), "Units                    : mm\n");
    EXPECT_EQ(copy.GetModelsCount(), 4);
}

} // namespace
