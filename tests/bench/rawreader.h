#ifndef BENCH_RAWREADER_H
#define BENCH_RAWREADER_H

/// Reads all rows of a statement through SQLCipher's C interface, each cell in its own storage class.
///
/// \param keyStatements  run one after the other directly after the opening; ends with a null pointer
/// \return the sum of all lengths and numbers, so that nothing is left unread; -1 after an error
extern "C" long long rawReadAll(const char *path, const char *const *keyStatements, const char *select);

/// Opens a file and derives its key. \return the connection, for `rawRead` and `rawClose`; null after an
/// error
extern "C" void *rawOpen(const char *path, const char *const *keyStatements);

/// Reads the first rows of a statement as `rawReadAll` does.
///
/// \param rows  at most so many; below 0 all
extern "C" long long rawRead(void *connection, const char *select, long long rows);

extern "C" void rawClose(void *connection);

#endif
