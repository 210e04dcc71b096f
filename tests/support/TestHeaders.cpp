// The compiler needs a source for which it precompiles Qt's headers.
