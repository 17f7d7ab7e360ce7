// Servers that vanish, are slow or talk nonsense.

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <atomic>
#include <latch>

#include "platform/databases/odbc/linux/postgres_contacts.h"
#include "platform/errors.h"

namespace orvane {
namespace {

constexpr const char* kNotFound = "SQL Server existiert nicht oder Zugriff verweigert.";

std::string Failure(const std::function<void()>& action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return std::to_string(error.Number()) + " " + error.Description();
  }
  return "no failure";
}

std::unique_ptr<DatabaseConnection> ServerConnection(DatabaseServices& databases,
                                                     const std::string& server,
                                                     const std::string& password) {
  auto connection = databases.NewConnection();
  connection->SetProvider("SQLOLEDB.1");
  connection->SetProperty("Data Source", server);
  connection->SetProperty("Initial Catalog", "Talmix");
  connection->SetProperty("User ID", "orvane");
  connection->SetProperty("Password", password);
  return connection;
}

class ServerFailures : public testing::Test {
 protected:
  void SetUp() override {
    if (PostgresCluster::Programs().empty()) GTEST_SKIP() << "no PostgreSQL on this machine";
  }

  DriverThreads threads_;
};

TEST_F(ServerFailures, AreNamedWhenTheServerDies) {
  PostgresCluster cluster(
      "CREATE VIEW \"Langsam\" AS SELECT 1 AS \"ID\" FROM pg_sleep(600);"
      "CREATE VIEW \"Zeiten\" AS SELECT TIMESTAMP '2024-04-03 09:05:07' AS \"Zeit\","
      "DATE '2024-04-03' AS \"Tag\", CAST(NULL AS TIMESTAMP) AS \"Nie\"");
  CountingWork work;
  HostDatabases servers = ServerDatabases(PostgresAccess(cluster.Port()), work, threads_);
  const auto contacts = ServerConnection(servers, "127.0.0.1", PostgresCluster::kPassword);
  contacts->Open();
  const auto times = contacts->Execute("SELECT Zeit,Tag,Nie FROM Zeiten");
  EXPECT_EQ(times->Field(0), DbValue(45385 + 32707 / 86400.0));
  EXPECT_EQ(times->Field(1), DbValue(45385.0));
  EXPECT_EQ(times->Field(2), DbValue());
  std::thread killer([&cluster] {
    std::this_thread::sleep_for(std::chrono::milliseconds{200});
    cluster.Kill();
  });
  const std::string died = Failure([&] { contacts->Execute("SELECT ID FROM Langsam"); });
  killer.join();
  EXPECT_TRUE(died.starts_with("-2147467259 ")) << died;
  contacts->Close();
  EXPECT_EQ(Failure([&] { contacts->Open(); }), std::string("-2147467259 ") + kNotFound);
}

TEST_F(ServerFailures, SlowStatementsAreGivenUpAndNotAskedAgainAtOnce) {
  PostgresCluster cluster("CREATE VIEW \"Langsam\" AS SELECT 1 AS \"ID\" FROM pg_sleep(600);");
  CountingWork work;
  const OdbcLimits limits{std::chrono::milliseconds{300}};
  const auto access = PostgresAccess(cluster.Port());
  HostDatabases servers = ServerDatabases(access, work, threads_, limits);
  const auto contacts = ServerConnection(servers, "127.0.0.1", PostgresCluster::kPassword);
  for (int attempt = 0; !contacts->IsOpen() && attempt < 20; ++attempt) {
    // A machine under load may take longer than the limit for the login.
    Failure([&] { contacts->Open(); });
    std::this_thread::sleep_for(std::chrono::milliseconds{100});
  }
  const std::string slow = "SELECT ID FROM Langsam";
  EXPECT_EQ(Failure([&] { contacts->Execute(slow); }), "-2147217871 Timeout abgelaufen.");
  const int runs = work.runs;
  EXPECT_TRUE(Failure([&] { contacts->Execute(slow); }).starts_with("-2147467259 "));
  contacts->Close();
  EXPECT_EQ(Failure([&] { contacts->Open(); }), std::string("-2147467259 ") + kNotFound);
  EXPECT_EQ(work.runs, runs);

  // The server is told, and nothing is left waiting here.
  EXPECT_TRUE(threads_.AllEnded(std::chrono::seconds{60}));
  HostDatabases others = ServerDatabases(access, work, threads_);
  const auto watcher = ServerConnection(others, "127.0.0.1", PostgresCluster::kPassword);
  watcher->Open();
  EXPECT_EQ(watcher->Execute("SELECT Count(pid) FROM pg_stat_activity WHERE wait_event='PgSleep'")
                ->Field(0),
            DbValue(std::int64_t{0}));

  HostDatabases patient = ServerDatabases(access, work, threads_, {limits.wait, {}});
  const auto again = ServerConnection(patient, "127.0.0.1", PostgresCluster::kPassword);
  for (int time = 0; time < 2; ++time) {
    while (!again->IsOpen()) Failure([&] { again->Open(); });
    EXPECT_EQ(Failure([&] { again->Execute(slow); }), "-2147217871 Timeout abgelaufen.");
    again->Close();
  }
}

// Takes connections on a port and does something to each.
class Listener {
 public:
  explicit Listener(std::function<void(int)> answer, const char* machine = "127.0.0.1")
      : answer_(std::move(answer)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    inet_pton(AF_INET, machine, &address.sin_addr);
    if (bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(socket_, 8) != 0) {
      throw std::runtime_error("cannot listen");
    }
    socklen_t size = sizeof address;
    getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
  }
  ~Listener() {
    shutdown(socket_, SHUT_RDWR);
    thread_.join();
    for (const int peer : peers_) close(peer);
    close(socket_);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  int Port() const { return port_; }

 private:
  void Serve() {
    for (int peer = 0; (peer = accept(socket_, nullptr, nullptr)) >= 0;) {
      peers_.push_back(peer);
      answer_(peer);
    }
  }

  std::function<void(int)> answer_;
  int socket_ = socket(AF_INET, SOCK_STREAM, 0);
  int port_ = 0;
  std::vector<int> peers_;
  std::thread thread_;
};

void Reset(int peer) {
  const linger now{1, 0};
  setsockopt(peer, SOL_SOCKET, SO_LINGER, &now, sizeof now);
  shutdown(peer, SHUT_RDWR);
}

void TalkNonsense(int peer) {
  const std::string nonsense(4096, '\x04');
  send(peer, nonsense.data(), nonsense.size(), MSG_NOSIGNAL);
  shutdown(peer, SHUT_WR);
}

TEST(ServerDriver, ReportsWhateverIsNoServer) {
  DriverThreads threads;
  const OdbcLimits limits{std::chrono::milliseconds{4000}};
  const std::pair<const char*, std::function<void(int)>> kCases[] = {{"reset", Reset},
                                                                     {"nonsense", TalkNonsense}};
  for (const auto& [what, answer] : kCases) {
    CountingWork work;
    HostDatabases servers = ServerDatabases(SqlServerAccess(), work, threads, limits);
    Listener listener(answer);
    const auto contacts =
        ServerConnection(servers, "127.0.0.1," + std::to_string(listener.Port()), "x");
    EXPECT_EQ(Failure([&] { contacts->Open(); }), std::string("-2147467259 ") + kNotFound) << what;
  }
  CountingWork work;
  HostDatabases servers = ServerDatabases(SqlServerAccess(), work, threads, limits);
  // Nobody listens there.
  const auto nobody = ServerConnection(servers, "127.83.17.2,1", "x");
  EXPECT_EQ(Failure([&] { nobody->Open(); }), std::string("-2147467259 ") + kNotFound);
}

#ifndef __SANITIZE_ADDRESS__  // which needs memory for itself
TEST(ServerDriver, FailsWithoutAFreeThread) {
  DriverThreads threads;
  rlimit before{};
  getrlimit(RLIMIT_AS, &before);
  std::latch over(1);
  const rlimit nothingMore{1, before.rlim_max};
  setrlimit(RLIMIT_AS, &nothingMore);
  std::int32_t number = 0;
  try {
    // Some get the memory of threads that have ended.
    for (int i = 0; i < 100; ++i) threads.Start([&over] { over.wait(); });
  } catch (const DatabaseError& error) {
    number = error.Number();
  }
  setrlimit(RLIMIT_AS, &before);
  over.count_down();
  EXPECT_EQ(number, kDbErrorFailed);
  EXPECT_TRUE(threads.AllEnded(std::chrono::seconds{60}));
}
#endif

// The machine's own list of instances, which answers at port 1434 with where each one listens.
class InstanceList {
 public:
  InstanceList(const char* machine, int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(1434);
    inet_pton(AF_INET, machine, &address.sin_addr);
    if (bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
      throw std::runtime_error("cannot listen");
    }
    thread_ = std::thread([this, port] { Answer(port); });
  }
  ~InstanceList() {
    shutdown(socket_, SHUT_RDWR);
    thread_.join();
    close(socket_);
  }
  InstanceList(const InstanceList&) = delete;
  InstanceList& operator=(const InstanceList&) = delete;

 private:
  void Answer(int port) const {
    const std::string list = "ServerName;X;InstanceName;HOST;IsClustered;No;Version;10.0;tcp;" +
                             std::to_string(port) + ";;";
    std::string answer(1, '\5');
    answer += {static_cast<char>(list.size()), '\0'};
    answer += list;
    sockaddr_in asker{};
    socklen_t size = sizeof asker;
    char question = 0;
    while (recvfrom(socket_, &question, 1, 0, reinterpret_cast<sockaddr*>(&asker), &size) > 0) {
      sendto(socket_, answer.data(), answer.size(), 0, reinterpret_cast<sockaddr*>(&asker), size);
    }
  }

  int socket_ = socket(AF_INET, SOCK_DGRAM, 0);
  std::thread thread_;
};

TEST(ServerDriver, FindsANamedInstance) {
  constexpr const char* kMachine = "127.83.17.1";
  DriverThreads threads;
  CountingWork work;
  HostDatabases servers = ServerDatabases(SqlServerAccess(), work, threads);
  std::atomic<int> visits = 0;
  Listener instance(
      [&visits](int peer) {
        ++visits;
        Reset(peer);
      },
      kMachine);
  const InstanceList list(kMachine, instance.Port());
  const auto contacts = ServerConnection(servers, std::string(kMachine) + "\\HOST", "x");
  EXPECT_EQ(Failure([&] { contacts->Open(); }), std::string("-2147467259 ") + kNotFound);
  EXPECT_GT(visits, 0);
}

TEST(ServerDriver, IsWaitedForOnceWhenNobodyAnswers) {
  DriverThreads threads;
  const OdbcLimits limits{std::chrono::milliseconds{200}};
  CountingWork work;
  HostDatabases servers = ServerDatabases(SqlServerAccess(), work, threads, limits);
  Listener silent([](int) {});
  const auto contacts =
      ServerConnection(servers, "127.0.0.1," + std::to_string(silent.Port()), "x");
  for (int time = 0; time < 3; ++time) {
    EXPECT_EQ(Failure([&] { contacts->Open(); }), std::string("-2147467259 ") + kNotFound);
    EXPECT_EQ(work.runs, 1);
  }
  // Whoever else is asked for gets a try of his own.
  const auto others = ServerConnection(servers, "127.0.0.1," + std::to_string(silent.Port()), "y");
  EXPECT_EQ(Failure([&] { others->Open(); }), std::string("-2147467259 ") + kNotFound);
  EXPECT_EQ(work.runs, 2);
}

}  // namespace
}  // namespace orvane
