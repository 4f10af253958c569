// How this program was built, as far as it matters to figures.
#ifndef BENCHMARKS_BUILD_H
#define BENCHMARKS_BUILD_H

#if defined(__SANITIZE_ADDRESS__)
#define BENCH_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define BENCH_SANITIZED 1
#endif
#endif
#ifndef BENCH_SANITIZED
#define BENCH_SANITIZED 0
#endif

#ifdef __OPTIMIZE__
#define BENCH_OPTIMIZED 1
#else
#define BENCH_OPTIMIZED 0
#endif

#endif
