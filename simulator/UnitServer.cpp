#include "simulator/UnitServer.h"

#include <algorithm>
#include <utility>

namespace lumbra::sim {

namespace {

constexpr int QUERIES = 5;
/// Reports that an unpaced flood puts together at a time.
constexpr std::size_t FLOOD_BATCH = 1000;

/// `text` with every byte but printable ASCII written as \xNN.
std::string printable(const std::string& text) {
    static constexpr char DIGITS[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte <= '~')
            result += c;
        else
            result += {'\\', 'x', DIGITS[byte >> 4], DIGITS[byte & 15]};
    }
    return result;
}

} // namespace

UnitServer::UnitServer(Unit unit, Faults faults, QObject* parent)
    : QObject(parent), unit_(std::move(unit)), faults_(faults), random_(faults.seed) {
    connect(&server_, &QTcpServer::newConnection, this, &UnitServer::accept);
    if (faults_.flood && *faults_.flood > 0) {
        connect(&floodTimer_, &QTimer::timeout, this, &UnitServer::floodOnTime);
        floodTimer_.start(std::chrono::milliseconds(10));
        floodClock_.start();
    }
}

bool UnitServer::listen(const QHostAddress& address, quint16 port) {
    return server_.listen(address, port);
}

void UnitServer::accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        auto* client = new ClientConnection(socket, faults_, this);
        if (clients_.size() >= MAX_CLIENTS) {
            trace(client->name(), "!", "turned away: too many clients");
            delete client;
            continue;
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
        client->send(bytes);
        if (trace_ && !faults_.silence)
            for (const std::string& report : reports)
                trace(client->name(), "<", report);
    }
}

void UnitServer::remove(ClientConnection* client, const QString& reason) {
    trace(client->name(), "!", reason.toStdString());
    clients_.erase(std::remove(clients_.begin(), clients_.end(), client), clients_.end());
    client->deleteLater();
}

void UnitServer::floodOnTime() {
    const std::int64_t due = floodClock_.elapsed() * *faults_.flood / 1000;
    const std::string bytes = someReports(static_cast<std::size_t>(due - flooded_));
    flooded_ = due;
    for (ClientConnection* client : clients_)
        client->send(bytes);
}

std::string UnitServer::someReports(std::size_t count) {
    if (floodReports_.empty())
        for (int query = 0; query < QUERIES; ++query)
            for (std::string& report : unit_.answer(query))
                floodReports_.push_back(std::move(report));
    std::string bytes;
    for (std::size_t done = 0; done < count; ++done)
        bytes += noise() + floodReports_[random_() % floodReports_.size()];
    return bytes;
}

std::string UnitServer::noise() {
    std::string bytes;
    if (faults_.noise > 0)
        bytes.resize(random_() % (static_cast<std::size_t>(faults_.noise) + 1));
    for (char& byte : bytes) {
        byte = static_cast<char>(random_() & 0xFF);
        // A closing bracket would hand the last report in again, an opening one begin a report.
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
