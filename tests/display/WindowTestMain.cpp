#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>

#include <cstdio>
#include <cstdlib>

#include "tests/display/CVirtualDisplay.h"
#include "tests/display/SanitizerDefaults.h"

using namespace nestrix;

namespace {

/// The toolkit would ask a person what to do, and wait.
void AbortOnAssert(const wxString& file, int nLine, const wxString& function, const wxString& condition,
                   const wxString& message) {
    std::fprintf(
        stderr, "%s:%d: %s: assertion \"%s\" failed: %s\n", static_cast<const char*>(file.utf8_str()), nLine,
        static_cast<const char*>(function.utf8_str()), static_cast<const char*>(condition.utf8_str()),
        static_cast<const char*>(message.utf8_str()));
    std::abort();
}

class CTestApp : public wxApp {
public:
    bool OnInit() override { return true; }
    /// Closing the last window ends a test, not the tests.
    CTestApp() { SetExitOnFrameDelete(false); }
};

int RunInsideToolkit(int argc, char** argv) {
    const support::CVirtualDisplay display;
    wxSetAssertHandler(AbortOnAssert);
    wxApp::SetInstance(new CTestApp);
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) {
        std::fputs("The toolkit did not start\n", stderr);
        return 1;
    }
    int nResult = 1;
    {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        nResult = RUN_ALL_TESTS();
    }
    wxTheApp->OnExit();
    wxEntryCleanup();
    return nResult;
}

}  // namespace

// The sanitizers call these, by these names, before main; without them nobody does.
extern "C" {

const char* __lsan_default_suppressions();
const char* __lsan_default_options();
const char* __tsan_default_options();

const char* __lsan_default_suppressions() {
    return support::TOOLKIT_LEAKS;
}

const char* __lsan_default_options() {
    return support::LEAK_OPTIONS;
}

const char* __tsan_default_options() {
    return support::TOOLKIT_RACES;
}
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    return RunInsideToolkit(argc, argv);
}
