// Symbol visibility. The library is built with hidden visibility; VORN_API marks what a host links against. A host's
// own build has nothing to export here, and need not read an attribute per declaration.
#ifndef VORN_EXPORT_H
#define VORN_EXPORT_H

#ifdef VORN_BUILDING
#define VORN_API __attribute__((visibility("default")))
#else
#define VORN_API
#endif

#endif
