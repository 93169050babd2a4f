#include "app/CPolyThread.h"

#include <wx/utils.h>

#include <cstdio>
#include <exception>

#include "app/CNestrixFrame.h"

using namespace nestrix;

CPolyThread::CPolyThread(CNestrixFrame* pFrame) : wxThread(wxTHREAD_JOINABLE), m_pFrame(pFrame) {}

CPolyThread::~CPolyThread() {
    if (!IsToBeJoined()) {
        return;
    }
    CRelaxed<bool>& bAbandoned = m_pFrame->m_Container.m_bAbandoned;
    bAbandoned = true;
    Wait();
    bAbandoned = false;
}

void CPolyThread::SetPopulation(int nPopulation) {
    if (IsRunning()) {
        std::puts("Thread is already running");
        return;
    }
    m_nPopulation = nPopulation;
}

void CPolyThread::SetGenerations(int nGenerations) {
    if (IsRunning()) {
        std::puts("Thread is already running");
        return;
    }
    m_nGenerations = nGenerations;
}

wxThread::ExitCode CPolyThread::Entry() {
    m_bEntered = true;
    if (m_bOnlyToBeJoined) {
        return nullptr;
    }
    std::puts("Inside the entry code");
    try {
        m_pFrame->m_Container.RunGA(m_nPopulation, m_nGenerations);
    } catch (const std::exception& error) {
        // A population too large for the memory, most likely. Beyond this point it would end the program.
        std::printf("The search has ended early: %s\n", error.what());
    }
    std::puts("Thread Exited");
    return nullptr;
}

bool CPolyThread::IsToBeJoined() {
    if (IsAlive() || m_bEntered) {
        return true;
    }
    // Never run. Once created it sleeps until it is, and the toolkit can neither join nor delete it so.
    m_bOnlyToBeJoined = true;
    return GetId() != 0 && Run() == wxTHREAD_NO_ERROR;
}

void CPolyThread::StopAndJoin() {
    if (!IsToBeJoined()) {
        return;
    }
    // Once is not enough: the search clears the flag when it begins.
    while (IsAlive()) {
        m_pFrame->m_Container.m_bStop = true;
        wxMilliSleep(1);
    }
    Wait();
}
