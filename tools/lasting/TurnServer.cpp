#include "TurnServer.h"

#include "desk/Delivery.h"
#include "desk/SampleGame.h"
#include "desk/Waiting.h"

#include <QCoreApplication>
#include <algorithm>
#include <iostream>
#include <unistd.h>

namespace turnpost::lasting {

std::map<int, size_t> turnLengths() {
    std::map<int, size_t> lengths;
    for (int player = 1; player <= 16; ++player) {
        lengths[player] = static_cast<size_t>(player) * 500;
    }
    return lengths;
}

TurnServer::TurnServer()
    : server([](desk::Point point, int, const std::string&) { return desk::goodAnswer(point); }),
      questions(STDIN_FILENO, QSocketNotifier::Read) {
    connect(&questions, &QSocketNotifier::activated, this, &TurnServer::answerQuestion);
    std::cout << server.address() << std::endl;
}

void TurnServer::answerQuestion() {
    std::string question;
    if (!std::getline(std::cin, question)) {
        questions.setEnabled(false);
        QCoreApplication::quit();
        return;
    }
    std::cout << faultOfSend() << std::endl;
    server.forget();
}

std::string TurnServer::faultOfSend() {
    const auto& conversations = server.conversations();
    const auto lengths = turnLengths();
    // The client is done when it has said its last QUIT, the server only when it has heard it.
    desk::waitUntil([&] {
        return conversations.size() >= lengths.size() &&
               std::all_of(conversations.begin(), conversations.end(),
                           [](const auto& conversation) { return conversation.ended; });
    });
    if (conversations.size() != lengths.size()) {
        return std::to_string(conversations.size()) + " connections";
    }
    for (const auto& [player, length] : lengths) {
        std::string fault = desk::deliveryFault(conversations[static_cast<size_t>(player) - 1],
                                                player, desk::sampleBytes(length, player));
        if (!fault.empty()) {
            return fault;
        }
    }
    return "well";
}

} // namespace turnpost::lasting
