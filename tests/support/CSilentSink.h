#pragma once

#include "ga/CContainer.h"

namespace nestrix::support {

/// A sink that hears nothing and never asks for the end. Tests that want to hear more override that.
class CSilentSink : public CSearchSink {
public:
    void GenerationDone(int /*nGeneration*/) override {}
    [[nodiscard]] bool IsToStop() const override { return false; }

protected:
    ~CSilentSink() = default;
};

/// The same, to be constructed.
class CNobody final : public CSilentSink {};

/// Passes a container's requests on to the search, as the window does.
class CContainerSink : public CSilentSink {
public:
    explicit CContainerSink(CContainer& container) : m_Container(container) {}

    [[nodiscard]] bool IsToStop() const override { return m_Container.m_bStop; }
    [[nodiscard]] const CRelaxed<bool>* AbandonRequest() const override { return &m_Container.m_bAbandoned; }

protected:
    ~CContainerSink() = default;

    CContainer& m_Container;
};

}  // namespace nestrix::support
