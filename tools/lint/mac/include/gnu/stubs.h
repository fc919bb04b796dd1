// In place of the C library's, which includes one that is installed for its own processor only.
