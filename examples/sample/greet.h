#ifndef GREET_H
#define GREET_H

/* A block comment
   over two lines. */
void greet(const char* name);

#endif
