#include "platform/HttpsClient.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <filesystem>
#include <fstream>
#include <memory>

#include "fakes/FakeClock.h"
#include "holidays/Holidays.h"
#include "support/TempFolder.h"
#include "support/TlsServer.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

using namespace std::chrono_literals;

using Result = std::optional<HttpResponse>;

constexpr auto never = std::chrono::hours(1);

// Sends `bytes` again and again, a while after the former have gone, for as long as anyone listens.
TlsServer::Answer drip(const std::string& head, const std::string& bytes,
                       std::chrono::milliseconds pause, int times) {
    return [=](QSslSocket& to) {
        to.write(QByteArray::fromStdString(head));
        auto* timer = new QTimer(&to);
        auto left = std::make_shared<int>(times);
        QObject::connect(timer, &QTimer::timeout, &to, [=, &to] {
            if ((*left)-- > 0)
                to.write(QByteArray::fromStdString(bytes));
            else
                timer->stop();
        });
        timer->start(pause);
    };
}

TlsServer::Answer redirect(const std::string& to) {
    return TlsServer::whole("302 Found", "elsewhere", "Location: " + to + "\r\n");
}

class HttpsClientTest : public testing::Test {
 protected:
    HttpsClient::Options options() const {
        return {.stall = never, .total = never, .issuers = {server.certificate()}};
    }

    /// What a client gets; outer nothing if it is never told.
    std::optional<Result> get(const std::string& url, const HttpsClient::Options& options) {
        HttpsClient client(options);
        std::optional<Result> result;
        client.get(url, [&](Result response) { result = std::move(response); });
        EXPECT_FALSE(result) << "called before the event loop";
        eventually([&] { return result.has_value(); });
        return result;
    }

    TlsServer server;
};

/// Whether what the library works with is there: it has a thread of that name.
bool isAtWork() {
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        if (name.starts_with("QNetworkAccess")) return true;
    }
    return false;
}

void expectNothing(const std::optional<Result>& result, const std::string& what) {
    ASSERT_TRUE(result) << what << ": no call";
    EXPECT_FALSE(*result) << what << ": status " << (*result)->status;
}

TEST_F(HttpsClientTest, GivesStatusAndBytesAsTheyAre) {
    const std::string strange("\xff\xfe\0\x80 caf\xe9", 9);
    const std::string large(3'000'000, 'x');
    struct Case {
        const char* path;
        const char* status;
        std::string body;
        int wanted;
    };
    const Case cases[] = {{"/plain", "200 OK", "hello", 200},
                          {"/bytes", "200 OK", strange, 200},
                          {"/large", "200 OK", large, 200},
                          {"/empty", "200 OK", "", 200},
                          {"/none", "404 Not Found", "<html>", 404},
                          {"/bad", "400 Bad Request", "", 400},
                          {"/busy", "503 Service Unavailable", "later", 503},
                          {"/a%23b%40c", "200 OK", "escaped", 200}};
    for (const Case& each : cases) {
        server.answers[each.path] = TlsServer::whole(each.status, each.body);
        const auto result = get(server.origin() + each.path, options());
        ASSERT_TRUE(result && *result) << each.path;
        EXPECT_EQ((*result)->status, each.wanted);
        EXPECT_TRUE((*result)->body == each.body) << each.path;
    }
    EXPECT_EQ(server.paths.back(), "/a%23b%40c");
}

TEST_F(HttpsClientTest, RedirectsLeadToHttpsOnly) {
    server.answers["/here"] = redirect(server.origin() + "/there");
    server.answers["/there"] = TlsServer::whole("200 OK", "found");
    server.answers["/open"] = redirect("http://localhost/there");
    server.answers["/file"] = redirect("file:///etc/passwd");
    server.answers["/round"] = redirect("/round");
    const auto result = get(server.origin() + "/here", options());
    ASSERT_TRUE(result && *result);
    EXPECT_EQ((*result)->body, "found");
    for (const char* path : {"/open", "/file", "/round"})
        expectNothing(get(server.origin() + path, options()), path);
}

TEST_F(HttpsClientTest, AsksNobodyElse) {
    const std::string port = std::to_string(server.serverPort());
    const std::string urls[] = {"http://localhost:" + port + "/",
                                "file:///etc/passwd",
                                "data:text/plain,hello",
                                "https://",
                                "https://[bad/",
                                "\xff\xfe",
                                ""};
    for (const std::string& url : urls)
        expectNothing(get(url, options()), url);
    EXPECT_TRUE(server.requests.empty());
}

TEST_F(HttpsClientTest, ChecksWhoAnswers) {
    server.answers["/"] = TlsServer::whole("200 OK", "secret");
    auto trusting = options();
    expectNothing(get(server.origin("127.0.0.1") + "/", trusting), "another name");
    trusting.issuers.clear();
    expectNothing(get(server.origin() + "/", trusting), "unknown issuer");
    EXPECT_TRUE(server.requests.empty());
}

TEST_F(HttpsClientTest, GivesUpOnWhatDoesNotEnd) {
    const std::string endless = "HTTP/1.1 200 OK\r\n\r\n";
    const std::string part(512 * 1024, 'x');
    server.answers["/endless"] = drip(endless, part, 1ms, 1 << 20);
    server.answers["/drip"] = drip(endless, "x", 10ms, 1 << 20);
    server.answers["/broken"] = [](QSslSocket& to) {
        to.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
        to.disconnectFromHost();
    };
    server.answers["/garbled"] = [](QSslSocket& to) {
        to.write("\xff\xff\xff\r\n\r\n");
        to.disconnectFromHost();
    };
    expectNothing(get(server.origin() + "/endless", options()), "a body without end");
    expectNothing(get(server.origin() + "/broken", options()), "a body cut short");
    expectNothing(get(server.origin() + "/garbled", options()), "no HTTP");

    auto hasty = options();
    hasty.stall = 300ms;
    expectNothing(get(server.origin() + "/silent", hasty), "no answer");
    auto busy = options();
    busy.total = 300ms;
    expectNothing(get(server.origin() + "/drip", busy), "a byte now and then");
}

TEST_F(HttpsClientTest, WaitsForAServerThatGoesOn) {
    auto patient = options();
    patient.stall = 2s;
    server.answers["/slow"] =
        drip("HTTP/1.1 200 OK\r\nContent-Length: 24\r\n\r\n", "bit", 300ms, 8);
    const auto result = get(server.origin() + "/slow", patient);
    ASSERT_TRUE(result && *result);
    EXPECT_EQ((*result)->body.size(), 24U);
}

TEST_F(HttpsClientTest, TakesAsManyBytesAsItMay) {
    auto small = options();
    small.body = 1000;
    server.answers["/just"] = TlsServer::whole("200 OK", std::string(1000, 'x'));
    server.answers["/over"] = TlsServer::whole("200 OK", std::string(1001, 'x'));
    const auto result = get(server.origin() + "/just", small);
    ASSERT_TRUE(result && *result);
    EXPECT_EQ((*result)->body.size(), 1000U);
    expectNothing(get(server.origin() + "/over", small), "a byte too many");
}

TEST_F(HttpsClientTest, KeepsNoCookiesAndNoCopies) {
    server.answers["/"] = TlsServer::whole(
        "200 OK", "body", "Set-Cookie: id=7; Path=/\r\nCache-Control: max-age=9999\r\n");
    HttpsClient client(options());
    for (std::size_t count = 1; count <= 2; ++count) {
        bool done = false;
        client.get(server.origin() + "/", [&](Result) { done = true; });
        ASSERT_TRUE(eventually([&] { return done; }));
        ASSERT_EQ(server.requests.size(), count);
    }
    EXPECT_EQ(server.requests.back().find("Cookie:"), std::string::npos);
}

TEST_F(HttpsClientTest, KeepsNothingRunningOnceAllIsDone) {
    server.answers["/"] = TlsServer::whole("200 OK", "body");
    HttpsClient client(options());
    for (int round = 0; round < 2; ++round) {
        int done = 0;
        client.get(server.origin() + "/", [&](Result) {
            EXPECT_TRUE(isAtWork());
            client.get(server.origin() + "/", [&](Result second) { done += second ? 1 : 0; });
        });
        client.get(server.origin() + "/", [&](Result first) { done += first ? 1 : 0; });
        EXPECT_TRUE(eventually([&] { return done == 2; }));
        EXPECT_TRUE(eventually([] { return !isAtWork(); }));
    }
}

TEST_F(HttpsClientTest, GivesUpWhatIsUnderWayWhenItGoes) {
    auto client = std::make_unique<HttpsClient>(options());
    bool called = false;
    client->get(server.origin() + "/silent", [&](Result) { called = true; });
    client->get("http://localhost/", [&](Result) { called = true; });
    ASSERT_FALSE(called);
    client->get(server.origin() + "/silent", [&](Result) { called = true; });
    client.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(called);
}

TEST_F(HttpsClientTest, BringsHolidaysFromTheSecondAddress) {
    const std::string first = "/calendar/ical/en.indian%23holiday%40group.test/public/basic.ics";
    const std::string second = "/calendar/ical/en.in%23holiday%40group.test/public/basic.ics";
    const std::string other = "/calendar/ical/en.french%23holiday%40group.test/public/basic.ics";
    const std::string bytes = "/calendar/ical/en.fr%23holiday%40group.test/public/basic.ics";
    server.answers[first] = TlsServer::whole("404 Not Found", "no");
    server.answers[second] = TlsServer::whole(
        "200 OK",
        "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nDTSTART;VALUE=DATE:20260126\r\n"
        "DESCRIPTION:Public holiday\r\nSUMMARY:Republic Day\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    server.answers[other] = TlsServer::whole("200 OK", "<html>Sign in</html>");
    server.answers[bytes] = TlsServer::whole("200 OK", "BEGIN:VCALENDAR\r\n\xff\xfe\r\n");

    const TempFolder folder;
    const FakeClock clock(Instant{});
    HttpsClient client(options());
    Holidays holidays(folder.path(), clock, &client, {server.origin(), "group.test"});
    holidays.ensure("IN");
    ASSERT_TRUE(eventually([&] { return holidays.days("IN") != nullptr; }));
    EXPECT_EQ(server.paths, (std::vector{first, second}));
    EXPECT_EQ(holidays.upcoming("IN", DayKey(2026, 1, 1)).size(), 1U);

    holidays.ensure("FR");
    EXPECT_TRUE(eventually([&] { return holidays.isMissing("FR"); }));
    EXPECT_EQ(server.paths.size(), 4U);
}

}  // namespace
}  // namespace noonward::test
