#pragma once

#include <string>

/// The other process of a measurement. Each returns when the connection is gone or, for the first,
/// when the process is asked to end.
void EchoMessages(const std::string& socket);  // a client of module 0x390000
void EchoBytes(const std::string& socket);
void ServeClients(const std::string& socket, int count);  // clients of 0x400000 and up, in a group
