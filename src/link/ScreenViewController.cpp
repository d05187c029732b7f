#include "link/ScreenViewController.h"

#include "protocol/Command.h"
#include "toolkit/Translatable.h"

#include <span>
#include <string>

namespace lumbra {

ScreenViewController::ScreenViewController(const ScreenContext& context, std::shared_ptr<View> view,
                                           int queryNumber)
    : ViewController(std::move(view)),
      context_(context),
      queryNumber_(queryNumber),
      spinner_(this->view().outlet<ActivityIndicator>("spinner")) {}

void ScreenViewController::viewDidLoad() {
    serverConn_ = context_.owner.serverConn();
}

void ScreenViewController::viewWillAppear() {
    connectServer();
}

void ScreenViewController::applicationDidBecomeActive() {
    if (!context_.owner.appWasInBackground())
        return;
    context_.owner.updateFromPreferences();
    connectServer();
}

void ScreenViewController::connectServer() {
    serverConn_->setDelegate(shared(this));
    if (serverConn_->isConnected()) {
        poll();
        return;
    }
    // The worker owns neither the screen nor the connection, which may end meanwhile.
    const bool posted =
        context_.worker.post([attempt = serverConn_->nextOpenAttempt(), &queue = context_.queue,
                              failed = whileAlive([this] { displayConnectionError(); })] {
            if (!ServerConnection::open(attempt))
                queue.post(failed);
        });
    if (!posted)
        displayConnectionError();
}

void ScreenViewController::serverConnected() {
    if (send(announceSerial(serverConn_->serial)) == -1)
        displayConnectionError();
    poll();
}

void ScreenViewController::poll() {
    if (!serverConn_->polling)
        return;
    spinner_->startAnimating();
    if (send(queryState(queryNumber_)) == -1) {
        spinner_->stopAnimating();
        displayConnectionError();
    }
}

void ScreenViewController::dataReceived(const ReceiveBuffer& buffer, std::size_t count) {
    reports_.feed(std::span(buffer).first(count),
                  [this](std::string_view report) { processCommand(report); });
}

void ScreenViewController::displayConnectionError() {
    context_.queue.post(whileAlive([this, address = serverConn_->ip_address()] {
        context_.alerts.present(
            {.title = {LUMBRA_TEXT("System", "Error")},
             .message = {LUMBRA_TEXT("System", "Failed to connect to IP address %1."), {address}},
             .button = {LUMBRA_TEXT("System", "OK")}});
    }));
}

void ScreenViewController::handle(const reports::EndOfState&) {
    spinner_->stopAnimating();
}

std::int64_t ScreenViewController::send(std::string_view body) {
    const auto command = frameCommand(serverConn_->unit, body);
    return serverConn_->sendData(
        std::span(reinterpret_cast<const std::uint8_t*>(command.data()), command.size()));
}

} // namespace lumbra
