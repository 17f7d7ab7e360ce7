"""A package, so that no installed module of this name is taken for this folder."""
