#ifndef STANDARDSTREAMS_H
#define STANDARDSTREAMS_H

/// Keeps the places of the standard streams. A process may be started without them; the files that it opens
/// next would take their numbers, and what is meant for standard output would be written into one of these.
/// Nor does an output whose reader is gone end the process any more: what is written there is lost.
///
/// To be called before anything is opened. Does nothing on Windows, where no file takes such a place.
void secureStandardStreams();

#endif
