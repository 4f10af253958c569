// Symbol visibility. The library is built with hidden visibility; VORN_API marks what a host links against. It means
// the same to a host: one that hides its own names still sees the library's.
#ifndef VORN_EXPORT_H
#define VORN_EXPORT_H

#define VORN_API __attribute__((visibility("default")))

#endif
