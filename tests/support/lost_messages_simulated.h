// What the program posts and nobody takes.
#ifndef TESTS_SUPPORT_LOST_MESSAGES_SIMULATED_H_
#define TESTS_SUPPORT_LOST_MESSAGES_SIMULATED_H_

namespace simulator {
class Server;
}  // namespace simulator

namespace tests {

// Frees what the messages carry that were lost with their windows, which the program leaves to the
// end of its process.
void ReleaseLost(simulator::Server& server);

}  // namespace tests

#endif  // TESTS_SUPPORT_LOST_MESSAGES_SIMULATED_H_
