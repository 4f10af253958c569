#!/usr/bin/env python3
# Says hello, too.

print("Hello")
