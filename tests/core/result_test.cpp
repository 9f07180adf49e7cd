#include "support/test.h"

namespace {

struct Row {
    long code;
    char kind; ///< C complete success, N no entity, P partial success, U undetermined, F determined failure
    unsigned returnCode;
    char const* message;
};

const Row kRows[] = {
    {0x00000000, 'C', 0, "Success"},
    {0x00000001, 'P', 0, "Partial Success"},
    {0x00000002, 'N', 0, "No Entity to Translate"},
    {0x00000003, 'C', 0, "Unknown Result"},
    {0x01000001, 'F', 1, "Failure"},
    {0x01000002, 'F', 2, "Error Encountered"},
    {0x01000004, 'F', 4, "Not supported"},
    {0x01000007, 'F', 7, "Unexpected Error"},
    {0x01000009, 'F', 9, "Invalid Component"},
    {0x0100000A, 'F', 10, "Invalid Object"},
    {0x0100000B, 'F', 11, "Invalid Argument"},
    {0x0100000D, 'F', 13, "File Not Found"},
    {0x0100000E, 'F', 14, "File Open Error"},
    {0x0100000F, 'F', 15, "File Save Error"},
    {0x01000010, 'F', 16, "File is encrypted"},
    {0x01000011, 'F', 17, "Model size exceeds valid box"},
    {0x01000012, 'F', 18, "Model size is smaller than the valid box"},
    {0x01000013, 'F', 19, "File write unit is invalid"},
    {0x01000014, 'F', 20, "File version is not supported"},
    {0x01000015, 'F', 21, "Invalid file"},
    {0x01010001, 'F', 1, "Unknown Result"},
    {0x010100FF, 'F', 1, "Unknown Result"},
    {0x02000003, 'F', 3, "Aborted"},
    {0x03000006, 'U', 6, "Undetermined"},
    {0x03000007, 'F', 7, "Unknown Result"},
};

TEST(Result, ClassifiesEveryCode) {
    for (Row const& row : kRows) {
        SCOPED_TRACE(row.code);
        KOVIResult const result(row.code);
        bool const success = row.kind == 'C' || row.kind == 'N' || row.kind == 'P';
        EXPECT_EQ((Numbers{result.IsSuccess(), result.IsFailure(), result.IsCompleteSuccess(),
                           result.IsPartialSuccess(), result.IsDeterminedFailure(), result.IsUndetermined()}),
                  (Numbers{success, !success, row.kind == 'C' || row.kind == 'N', row.kind == 'P', row.kind == 'F',
                           row.kind == 'U'}));
        EXPECT_EQ(result.GetReturnCode(), row.returnCode);
        EXPECT_STREQ(result.GetMessage(), row.message);
    }
    KOVIResult const fields(0x0AB51234);
    EXPECT_TRUE(fields.GetCriticity() == 0xA && fields.GetDomain() == 0xB5 && fields.GetNumber() == 0x1234);
}

/// What joining gives, for each kind on the left (rows) and on the right (columns, in the order CNPUF):
/// the left code, the right code, or 1 for "Partial Success".
struct Joining {
    char left;
    char const* worst;   ///< &=
    char const* mixture; ///< |=
};

const Joining kJoinings[] = {
    {'C', "LRRRR", "LL111"}, {'N', "LRRRR", "LL111"}, {'P', "LLLRR", "LLLLL"},
    {'U', "LLLLR", "11LLR"}, {'F', "LLLLL", "111LL"},
};

long joined(char outcome, long left, long right) { return outcome == 'L' ? left : outcome == 'R' ? right : 1; }

TEST(Result, JoinsEveryPairOfCodes) {
    for (Row const& left : kRows) {
        Joining const* joining = kJoinings;
        while (joining->left != left.kind) ++joining;
        for (Row const& right : kRows) {
            std::size_t const column = std::string("CNPUF").find(right.kind);
            KOVIResult worst(left.code);
            KOVIResult mixture(left.code);
            long const returnedWorst = worst &= KOVIResult(right.code);
            long const returnedMixture = mixture |= KOVIResult(right.code);
            EXPECT_EQ(long(worst), joined(joining->worst[column], left.code, right.code))
                << left.code << " &= " << right.code;
            EXPECT_EQ(long(mixture), joined(joining->mixture[column], left.code, right.code))
                << left.code << " |= " << right.code;
            EXPECT_EQ(returnedWorst, long(worst));
            EXPECT_EQ(returnedMixture, long(mixture));
        }
    }
}

TEST(Result, ComparesAsANumberAndStartsUndetermined) {
    KOVIResult result;
    EXPECT_TRUE(result == 0x03000006 && result != 0L);
    result = 0;
    EXPECT_TRUE(result == 0);
    EXPECT_TRUE(KOVIResult::E_FAIL_RESULT == 0x01000001);
    EXPECT_TRUE(KOVIResult::GetReturnCode(true) == 1 && KOVIResult::GetReturnCode(false) == 0);
    EXPECT_EQ(std::string(KOVIResult::GetOKKOString(true)) + KOVIResult::GetOKKOString(false), "OKKO");
}

} // namespace
