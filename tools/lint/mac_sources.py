#!/usr/bin/env python3
"""Checks that the program's sources compile for the Mac without a warning: for 64-bit and 32-bit
Intel processors from macOS 10.6 on, and for Apple's. mac_objects.py tells against which headers;
mac/Cocoa.h adds what later SDKs call deprecated.

    mac_sources.py [ROOT [BUILD]]
"""

from mac_objects import compile_all, run_if_there_are_headers

if __name__ == "__main__":
    run_if_there_are_headers(compile_all)
