#pragma once

namespace nestrix::support {

/// Whether the program is slowed down by a sanitizer, which replaces the allocator, too.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool UNDER_SANITIZER = true;
#elif defined(__has_feature)
inline constexpr bool UNDER_SANITIZER = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
inline constexpr bool UNDER_SANITIZER = false;
#endif

}  // namespace nestrix::support
