// A target that only holds precompiled headers needs a source.
