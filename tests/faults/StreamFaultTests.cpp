#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <new>

#include "formats/PolygonFile.h"
#include "geom/Geom.h"
#include "tests/faults/CAllocationFault.h"
#include "tests/faults/ProcessState.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// A file that opens and cannot be made a stream for want of memory. The linker puts the function below in the
// place of the C library's.

namespace {

bool g_bNoStream = false;

class CNoStream {
public:
    CNoStream() { g_bNoStream = true; }
    ~CNoStream() { g_bNoStream = false; }
    CNoStream(const CNoStream&) = delete;
    CNoStream& operator=(const CNoStream&) = delete;
};

class FileThatCannotBeStreamed : public testing::Test {
protected:
    const support::CTemporaryFolder m_Folder;
    const std::string m_Path =
        m_Folder.Write("square.pol", support::PolygonFileText(support::MakeSquare(20)));
    const faults::SProcessState m_Before = faults::CurrentState();
};

TEST_F(FileThatCannotBeStreamed, IsRefusedAndClosed) {
    CPolygon polygon;
    std::string printed;
    {
        const CNoStream noStream;
        printed = support::PrintedBy([&] { EXPECT_FALSE(polygon.ReadPolygon(m_Path.c_str())); });
    }
    EXPECT_EQ(printed, "Couldn't read polyon file " + m_Path + "\n");
    EXPECT_EQ(polygon, CPolygon());
    EXPECT_EQ(faults::CurrentState().m_nOpenFiles, m_Before.m_nOpenFiles);
}

TEST_F(FileThatCannotBeStreamed, HasTheFaultOfTheSystem) {
    const CNoStream noStream;
    EXPECT_EQ(ReadPolygonFile(m_Path.c_str()).m_Fault, "Cannot allocate memory");
}

TEST_F(FileThatCannotBeStreamed, IsClosedWhenThereIsNoMemoryToSaySo) {
    {
        const CNoStream noStream;
        const faults::CAllocationFault fault(1, faults::EExhaustion::Lasting);
        EXPECT_THROW((void)ReadPolygonFile(m_Path.c_str()).m_Fault, std::bad_alloc);
    }
    EXPECT_EQ(faults::CurrentState(), m_Before);
}

}  // namespace

extern "C" {

std::FILE* __real_fdopen(int nDescriptor, const char* pMode);

std::FILE* __wrap_fdopen(int nDescriptor, const char* pMode) {
    if (g_bNoStream) {
        errno = ENOMEM;
        return nullptr;
    }
    return __real_fdopen(nDescriptor, pMode);
}
}

}  // namespace nestrix
