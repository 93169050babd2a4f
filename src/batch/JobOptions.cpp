#include "batch/JobOptions.h"

namespace nestrix {

namespace {

template <class T, class TValue>
void Take(const std::optional<T>& given, TValue& value) {
    if (given) {
        value = *given;
    }
}

std::optional<double> Scaled(const std::optional<double>& length, double scale) {
    return length ? std::optional(*length * scale) : std::nullopt;
}

void ApplyDrop(const SJobDrop& drop, SDropOptions& options) {
    Take(drop.m_nPopulation, options.m_nPopulation);
    Take(drop.m_nGenerations, options.m_nGenerations);
    if (drop.m_Mutation) {
        options.m_fMutation = static_cast<float>(*drop.m_Mutation);
    }
}

}  // namespace

void ApplyJob(const SJob& job, bool bLimits, SPackOptions& options) {
    const double unit = job.m_Unit ? MillimetresIn(*job.m_Unit) : 1.0;
    SFreeOptions& free = options.m_Free;
    free.m_Strip = {Scaled(job.m_Strip.m_Width, unit), Scaled(job.m_Strip.m_Spacing, unit),
                    Scaled(job.m_Strip.m_Margin, unit)};
    Take(job.m_bKeepHolesEmpty, free.m_bKeepHolesEmpty);
    Take(job.m_nThreads, free.m_nThreads);
    if (bLimits) {
        free.m_Limits = job.m_Limits;
        free.m_Limits.m_TargetHeight = Scaled(job.m_Limits.m_TargetHeight, unit);
    }
    ApplyDrop(job.m_Drop, options.m_Drop);
    Take(job.m_Unit, options.m_Inputs.m_Reading.m_Unit);
    Take(job.m_Scale, options.m_Inputs.m_Reading.m_Scale);
    Take(job.m_eMethod, options.m_eMethod);
    Take(job.m_nSeed, options.m_Seed);
}

}  // namespace nestrix
