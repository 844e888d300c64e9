// The precompiled header needs one source to be compiled with.
