// What a library of nothing but a precompiled header is made of.
