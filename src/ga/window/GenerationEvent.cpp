#include <wx/event.h>
#include <wx/thread.h>

#include <atomic>
#include <chrono>
#include <ctime>
#include <memory>
#include <thread>

#include "ga/CContainer.h"

using namespace nestrix;

namespace {

using namespace std::chrono_literals;

/// How many notices may wait in the receiver's queue before the search waits for it to catch up. A toolkit
/// empties its queue before it looks at the mouse or paints, so a search that posts faster than its notices
/// are handled would freeze the window; small enough to keep Stop prompt, large enough to cost nothing.
constexpr int MAX_OUTSTANDING = 64;

/// How long a full queue may stand still before its receiver counts as gone.
constexpr auto PATIENCE = 2s;
constexpr auto POLL_INTERVAL = 200us;

/// Counts itself for as long as it exists, so that the poster knows how many of its notices the receiver
/// still has before it, whoever the receiver is.
class CGenerationEvent : public wxCommandEvent {
public:
    CGenerationEvent(int nGeneration, std::shared_ptr<std::atomic<int>> pOutstanding)
        : wxCommandEvent(wxEVT_COMMAND_MENU_SELECTED, ID_GENERATION_DONE),
          m_pOutstanding(std::move(pOutstanding)) {
        SetInt(nGeneration);
        ++*m_pOutstanding;
    }
    CGenerationEvent(const CGenerationEvent& other)
        : wxCommandEvent(other), m_pOutstanding(other.m_pOutstanding) {
        ++*m_pOutstanding;
    }
    CGenerationEvent& operator=(const CGenerationEvent&) = delete;
    ~CGenerationEvent() override { --*m_pOutstanding; }

    [[nodiscard]] wxEvent* Clone() const override { return new CGenerationEvent(*this); }

private:
    std::shared_ptr<std::atomic<int>> m_pOutstanding;
};

/// Posts one notice per generation, and keeps the receiver's queue short.
class CPostingSink final : public CSearchSink {
public:
    /// @param reported gets the statistics of each generation, which do not travel in its notice.
    CPostingSink(const CContainer& container, CStatisticsQueue& reported)
        : m_Container(container), m_Reported(reported), m_pReceiver(container.m_pEventHandler) {}

    void GenerationDone(int nGeneration) override {
        if (m_pReceiver == nullptr) {
            return;
        }
        WaitForReceiver();
        if (m_Container.m_bAbandoned) {
            return;
        }
        m_Reported.Push({nGeneration, m_Container.m_fAverageFitness, m_Container.m_fBestFitness});
        m_pReceiver->AddPendingEvent(CGenerationEvent(nGeneration, m_pOutstanding));
        m_nAfterPost = *m_pOutstanding;
    }

    [[nodiscard]] bool IsToStop() const override { return m_Container.m_bStop; }

    [[nodiscard]] const CRelaxed<bool>* AbandonRequest() const override { return &m_Container.m_bAbandoned; }

private:
    /// Once the queue is full, waits until it is empty, until the search is to stop, or until the receiver
    /// has handled nothing for so long that it counts as gone: then the search goes on without it until it
    /// stirs again. A search on the window's own thread never waits, since nobody else would handle notices.
    void WaitForReceiver() {
        int nSeen = *m_pOutstanding;
        m_bGone = m_bGone && nSeen >= m_nAfterPost;
        if (nSeen < MAX_OUTSTANDING || m_bGone || wxThread::IsMain()) {
            return;
        }
        auto lastProgress = std::chrono::steady_clock::now();
        while (nSeen > 0 && !m_Container.m_bStop && !m_Container.m_bAbandoned) {
            std::this_thread::sleep_for(POLL_INTERVAL);
            const int nNow = *m_pOutstanding;
            const auto now = std::chrono::steady_clock::now();
            if (nNow < nSeen) {
                lastProgress = now;
            } else if (now - lastProgress > PATIENCE) {
                m_bGone = true;
                return;
            }
            nSeen = nNow;
        }
    }

    const CContainer& m_Container;
    CStatisticsQueue& m_Reported;
    wxEvtHandler* m_pReceiver;
    std::shared_ptr<std::atomic<int>> m_pOutstanding = std::make_shared<std::atomic<int>>(0);
    bool m_bGone = false;
    /// Notices outstanding after the last post: fewer now means that some have been handled.
    int m_nAfterPost = 0;
};

}  // namespace

void CContainer::RunGA(int nPopulation, int nGenerations) {
    m_bStop = false;
    CPostingSink sink(*this, m_Reported);
    RunSearch(nPopulation, nGenerations, static_cast<unsigned int>(std::time(nullptr)), sink);
}
