#include "nest/CIncumbent.h"

#include "certify/Certify.h"

namespace nestrix {

CIncumbent::CIncumbent(const CPackProblem& problem, const SPackLimits& limits, CPackSink& sink)
    : m_Problem(problem), m_Limits(limits), m_Sink(sink), m_nLeastHeight(problem.LeastHeight()) {}

double CIncumbent::Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_Begin).count();
}

bool CIncumbent::Offer(const SFreePacking& packing, uint64_t nSteps) {
    if (!Certify(m_Problem.Pieces(), packing).IsValid()) {
        return false;
    }
    const std::lock_guard lock(m_Mutex);
    if (!m_Best || packing.m_nHeight < m_Best->m_nHeight) {
        m_Best = packing;
        m_LastGain = Seconds();
        if (!m_Reason) {
            m_Reason = EndWith(packing);
        }
        m_Sink.BetterPacking(packing, {m_LastGain, nSteps, DensityOf(m_Problem.Pieces(), packing)});
    }
    return true;
}

bool CIncumbent::IsToEnd() const {
    const std::lock_guard lock(m_Mutex);
    const std::optional<EPackEnd> reason = FindReason();
    if (!m_Reason) {
        m_Reason = reason;
    }
    return reason.has_value();
}

std::optional<EPackEnd> CIncumbent::EndWith(const SFreePacking& packing) const {
    if (packing.m_nHeight <= m_nLeastHeight) {
        return EPackEnd::NOTHING_TO_GAIN;
    }
    const std::optional<double>& height = m_Limits.m_TargetHeight;
    const std::optional<double>& density = m_Limits.m_TargetDensity;
    const bool bTarget = (height && m_Problem.Grid().Length(packing.m_nHeight) <= *height) ||
                         (density && DensityOf(m_Problem.Pieces(), packing) >= *density);
    return bTarget ? std::optional(EPackEnd::TARGET) : std::nullopt;
}

std::optional<EPackEnd> CIncumbent::FindReason() const {
    if (m_Sink.IsToStop()) {
        return EPackEnd::STOPPED;
    }
    const double seconds = Seconds();
    if (m_Limits.m_Seconds && seconds >= *m_Limits.m_Seconds) {
        return EPackEnd::SECONDS;
    }
    if (m_Limits.m_Patience && seconds - m_LastGain >= *m_Limits.m_Patience) {
        return EPackEnd::PATIENCE;
    }
    return std::nullopt;
}

EPackEnd CIncumbent::Reason() const {
    const std::lock_guard lock(m_Mutex);
    return m_Reason.value_or(EPackEnd::STEPS);
}

std::optional<SFreePacking> CIncumbent::Best() const {
    const std::lock_guard lock(m_Mutex);
    return m_Best;
}

}  // namespace nestrix
