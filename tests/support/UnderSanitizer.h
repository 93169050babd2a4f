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

/// Whether times mean what a user would see: the compiler optimised, and no sanitizer slows it down.
#ifdef __OPTIMIZE__
inline constexpr bool AT_FULL_SPEED = !UNDER_SANITIZER;
#else
inline constexpr bool AT_FULL_SPEED = false;
#endif

}  // namespace nestrix::support
