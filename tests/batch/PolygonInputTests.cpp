#include <gmock/gmock.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "batch/InputFormats.h"
#include "batch/PolygonInput.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CountOf;
using support::CTemporaryFolder;
using support::EntryCount;
using support::SquareFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace fs = std::filesystem;

TEST(PolygonFiles, NamedOutrightNeedNoExtension) {
    const CTemporaryFolder folder;
    const SInputFile input = ReadInput(folder.Write("square.txt", SquareFile(10.0F)), {});
    EXPECT_THAT(input.m_Findings, IsEmpty());
    ASSERT_EQ(input.m_Pieces.size(), 1U);
    EXPECT_EQ(input.m_Pieces[0].m_Polygon, support::MakeSquare(10.0F));
}

/// Counts how often files are opened.
class COpenings {
public:
    explicit COpenings(const std::string& path) : m_nQueue(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        EXPECT_GE(inotify_add_watch(m_nQueue, path.c_str(), IN_OPEN), 0);
    }
    ~COpenings() { close(m_nQueue); }
    COpenings(const COpenings&) = delete;
    COpenings& operator=(const COpenings&) = delete;

    [[nodiscard]] int Count() const {
        std::array<inotify_event, 64> events;  // none has a name: a file is watched
        const ssize_t nBytes = read(m_nQueue, events.data(), sizeof events);
        return nBytes < 0 ? 0 : static_cast<int>(nBytes) / static_cast<int>(sizeof(inotify_event));
    }

private:
    int m_nQueue;
};

/// What is checked is what is packed, even if the file is replaced in between.
TEST(PolygonFiles, AreOpenedOnce) {
    const CTemporaryFolder folder;
    const std::string square = folder.Write("a.pol", SquareFile(10.0F));
    const std::string unsound = folder.Write("b.pol", "3\n0,0\n");
    const COpenings sound(square);
    EXPECT_EQ(RunBatchProgram(square + " --method drop --population 2 --generations 1").m_nStatus, 0);
    EXPECT_EQ(sound.Count(), 1);
    const COpenings faulty(unsound);
    EXPECT_EQ(RunBatchProgram(folder.Path().native() + " --method drop --population 2").m_nStatus, 2);
    EXPECT_EQ(faulty.Count(), 1);
}

TEST(PolygonFiles, AreSearchedInTheOrderOfTheirNames) {
    const CTemporaryFolder named;
    (void)named.Write("1.pol", SquareFile(50.0F));
    (void)named.Write("2.pol", SquareFile(20.0F));
    const std::string options = " --method drop --population 5 --generations 2 --seed 3";
    const SBatchResult asFolder = RunBatchProgram(named.Path().native() + options);
    const SBatchResult asFiles =
        RunBatchProgram(named.PathOf("1.pol") + " " + named.PathOf("2.pol") + options);
    EXPECT_EQ(asFolder.m_nStatus, 0);
    EXPECT_EQ(asFolder.m_Output.substr(0, asFolder.m_Output.find("Pieces: ")),
              asFiles.m_Output.substr(0, asFiles.m_Output.find("Pieces: ")));
}

TEST(BadFiles, AreAllNamedBeforeAnySearch) {
    const CTemporaryFolder folder;
    const std::string sound = folder.Write("sound.pol", SquareFile(10.0F));
    const std::string shortened = folder.Write("short.pol", "4\n0,0\n1,0\n");
    const std::string boxless = folder.Write("boxless.pol", "3\n0,0\n1,0\n0,1\n");
    const std::string infinite = folder.Write("infinite.pol", "3\n0,0\ninf,0\n0,1\n;1,1\n0,0\n");
    const SBatchResult result =
        RunBatchProgram(shortened + " " + sound + " " + boxless + " " + infinite + " /no/such.pol");
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_EQ(result.m_Output, "");
    for (const std::string& place :
         {shortened + ":4: ", boxless + ":5: ", infinite + ":3: ", std::string("/no/such.pol: ")}) {
        EXPECT_THAT(result.m_Errors, HasSubstr("nestrix-batch: " + place));
    }
    EXPECT_EQ(CountOf("\n", result.m_Errors), 4);
}

/// What is odd about one file, each finding without its path.
std::vector<std::string> OdditiesOf(const std::string& text) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("odd.pol", text);
    const SInputFile input = ReadPolygonInput(path, {});
    EXPECT_EQ(input.m_Pieces.size(), 1U);
    std::vector<SFinding> findings = input.m_Findings;
    const std::vector<SFinding> harm = HarmOfDropping(input.m_Pieces.at(0), 400.0F);
    findings.insert(findings.end(), harm.begin(), harm.end());
    std::vector<std::string> oddities;
    for (const SFinding& finding : findings) {
        EXPECT_EQ(finding.m_eSeverity, SFinding::ESeverity::ODD);
        EXPECT_THAT(InWords(finding), StartsWith(path + ":"));
        oddities.push_back(InWords(finding).substr(path.size() + 1));
    }
    return oddities;
}

TEST(OddFile, ThatIsNotOddGivesNoWarning) {
    EXPECT_THAT(OdditiesOf(SquareFile(10.0F)), IsEmpty());
    EXPECT_THAT(OdditiesOf("3\n0,0\n400,0\n0,9\n;400,9\n0,0\n"), IsEmpty()) << "just as wide as the strip";
    EXPECT_THAT(OdditiesOf("3\n0,0\n4,0\n8,0\n;8,0\n0,0\n"), IsEmpty()) << "no area, no winding";
    EXPECT_THAT(OdditiesOf("3\n0,0\n4,0\n0,9\n;5,10\n-1,-1\n"), IsEmpty()) << "a box with room";
}

TEST(OddFile, WhoseOutlineRunsClockwiseIsNamed) {
    EXPECT_THAT(OdditiesOf("\n3\n\n0,0\n0,9\n9,0\n;9,9\n0,0"),
                ElementsAre(StartsWith("4: the outline runs clockwise")));
}

TEST(OddFile, WhoseBoxLeavesOutAVertexIsNamed) {
    const std::string outline = "3\n0,0\n9,0\n9,8\n";
    for (char const* const pBox : {";8,8\n0,0", ";9,7\n0,0", ";9,8\n1,0", ";9,8\n0,0.5"}) {
        EXPECT_THAT(OdditiesOf(outline + pBox),
                    ElementsAre(StartsWith("5: the bounding box does not enclose")))
            << pBox;
    }
}

TEST(OddFile, WiderThanTheStripIsNamed) {
    EXPECT_THAT(OdditiesOf("3\n-1,0\n400,0\n0,9\n\n;400,9\n-1,0"),
                ElementsAre(StartsWith("6: the piece is wider than the strip")));
}

TEST(OddFile, WithMoreThanOnePolygonIsNamed) {
    EXPECT_THAT(OdditiesOf(SquareFile(10.0F) + "\n" + SquareFile(20.0F)),
                ElementsAre(StartsWith("9: what follows the bounding box is left out")));
}

TEST(OddFiles, AreNamedOnStandardErrorAndPacked) {
    const CTemporaryFolder folder;
    const std::string clockwise = folder.Write("a.pol", "3\n0,0\n0,9\n9,0\n;9,9\n0,0");
    const std::string options = " --method drop --population 4 --generations 2 --seed 1";
    const SBatchResult result = RunBatchProgram(clockwise + " " + NESTRIX_SAMPLES "/squares" + options);
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_NE(result.ValueOf("Best height: "), "");
    EXPECT_THAT(result.m_Errors, StartsWith("nestrix-batch: warning: " + clockwise + ":2: "));
    EXPECT_EQ(CountOf("warning", result.m_Errors), 1);
}

TEST(BadFiles, LeaveNoPictureBehind) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram("/no/such.pol --svg " + folder.PathOf("packing.svg"));
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}

}  // namespace nestrix
