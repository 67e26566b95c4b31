// The library of the precompiled headers of all tests needs a source; this is it.
