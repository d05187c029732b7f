#include "simulator/UnitServer.h"

#include "system/Printable.h"

#include <algorithm>
#include <utility>

namespace lumbra::sim {

namespace {

constexpr int QUERIES = 5;
/// The number of reports that an unpaced flood writes at a time.
constexpr std::int64_t FLOOD_BATCH = 1000;

} // namespace

UnitServer::UnitServer(Unit unit, Faults faults, QObject* parent)
    : TcpServer(parent),
      unit_(std::move(unit)),
      faults_(faults),
      random_(faults.seed),
      floodPace_(faults.flood.value_or(0)) {
    if (faults_.flood && *faults_.flood > 0) {
        connect(&floodTimer_, &QTimer::timeout, this, &UnitServer::floodOnTime);
        floodTimer_.start(FloodPace::TICK);
        floodClock_.start();
    }
}

void UnitServer::acceptFailed(const std::string& problem) {
    trace("listener", "!", problem);
    dropEnded();
}

void UnitServer::welcome(QTcpSocket* socket) {
    auto* client = new ClientConnection(socket, faults_, this);
    if (clients_.size() >= MAX_CLIENTS && !dropEnded()) {
        trace(client->name(), "!", "turned away: too many clients");
        delete client;
        return;
    }
    clients_.push_back(client);
    connect(client, &ClientConnection::commandReceived, this,
            [this, client](const CommandReader::Command& command) { execute(*client, command); });
    connect(client, &ClientConnection::closed, this,
            [this, client](const QString& reason) { remove(client, reason); });
    trace(client->name(), "!", "connected");
    if (faults_.flood == 0) {
        connect(client, &ClientConnection::drained, this,
                [this, client] { client->send(someReports(FLOOD_BATCH)); });
        client->send(someReports(FLOOD_BATCH));
    }
}

bool UnitServer::dropEnded() {
    const auto ended = std::find_if(clients_.begin(), clients_.end(),
                                    [](const ClientConnection* client) { return client->hasEnded(); });
    if (ended == clients_.end())
        return false;
    remove(*ended, QStringLiteral("dropped: it has not closed its ended connection"));
    return true;
}

void UnitServer::execute(ClientConnection& client, const CommandReader::Command& command) {
    const std::string text = command.unit < 0 ? '[' + command.body + ']'
                                              : "[U" + std::to_string(command.unit) + command.body + ']';
    if (command.unit >= 0 && command.unit != unit_.number()) {
        ++statistics_.elsewhere;
        trace(client.name(), ">", text + " for another unit");
        return;
    }
    const Response response =
        command.unit < 0 ? Response{Response::To::NOT_A_COMMAND, {}} : unit_.execute(command.body);
    if (response.to == Response::To::NOT_A_COMMAND) {
        ++statistics_.refused;
        trace(client.name(), ">", text + " refused");
        return;
    }
    ++statistics_.carried_out;
    trace(client.name(), ">", text);
    if (response.to == Response::To::ASKER) {
        std::vector<std::string> reports;
        for (std::size_t index = 0; index < response.reports.size(); ++index)
            if (faults_.drop == 0 || (index + 1) % static_cast<std::size_t>(faults_.drop) != 0)
                reports.push_back(response.reports[index]);
        tell({&client}, reports);
        return;
    }
    floodReports_.clear();
    tell(clients_, response.reports);
    Q_EMIT changed();
}

void UnitServer::tell(const std::vector<ClientConnection*>& clients,
                      const std::vector<std::string>& reports) {
    std::string bytes;
    for (const std::string& report : reports)
        bytes += noise() + report;
    for (ClientConnection* client : clients) {
        if (client->send(bytes) && trace_)
            for (const std::string& report : reports)
                trace(client->name(), "<", report);
    }
}

void UnitServer::remove(ClientConnection* client, const QString& reason) {
    trace(client->name(), "!", reason.toStdString());
    std::erase(clients_, client);
    client->deleteLater();
}

void UnitServer::floodOnTime() {
    const std::string bytes = someReports(floodPace_.due(std::chrono::milliseconds(floodClock_.restart())));
    for (ClientConnection* client : clients_)
        client->send(bytes);
}

std::string UnitServer::someReports(std::int64_t count) {
    if (floodReports_.empty())
        for (int query = 0; query < QUERIES; ++query)
            for (std::string& report : unit_.answer(query))
                floodReports_.push_back(std::move(report));
    std::string bytes;
    for (std::int64_t done = 0; done < count; ++done)
        bytes += noise() + floodReports_[random_() % floodReports_.size()];
    return bytes;
}

std::string UnitServer::noise() {
    std::string bytes;
    if (faults_.noise > 0)
        bytes.resize(random_() % (static_cast<std::size_t>(faults_.noise) + 1));
    for (char& byte : bytes) {
        byte = static_cast<char>(random_() & 0xFF);
        // A round bracket would begin or end a report.
        if (byte == '(' || byte == ')')
            byte = '\n';
    }
    return bytes;
}

void UnitServer::trace(const std::string& who, const char* direction, const std::string& text) const {
    if (trace_)
        trace_(who + ' ' + direction + ' ' + printable(text));
}

} // namespace lumbra::sim
