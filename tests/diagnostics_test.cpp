// The tests that the server asks for: how they are requested, their inputs, and how their results are read.
#include <map>

#include "support/catalogue.hpp"
#include "support/tables.hpp"

#define PING(parameter) IPPingDiagnostics_##parameter
#define TRACE(parameter) TraceRouteDiagnostics_##parameter
#define UPLOAD(parameter) UploadDiagnostics_##parameter
#define DOWNLOAD(parameter) DownloadDiagnostics_##parameter
#define LOOKUP(parameter) NSLookupDiagnostics_##parameter
#define ECHO(parameter) UDPEchoConfig_##parameter

namespace kova::test {
namespace {

class Diagnostics : public TableTest {};

Source result(const std::string& test, const std::string& text) { return file("/tmp/diag/" + test + "_result", text); }

TEST_F(Diagnostics, AreRequestedAndReportThroughTheirStateFiles) {
  for (const auto& [handler, name, bit] :
       {std::tuple{&PING(DiagnosticsState), "ping", 0x40U},
        {TRACE(DiagnosticsState), "trace", 0x80U},
        {UPLOAD(DiagnosticsState), "upload", 0x8000U},
        {DOWNLOAD(DiagnosticsState), "download", 0x10000U},
        {LOOKUP(DiagnosticsState), "nslookup", 0x40000U},
        {WiFi_NeighboringWiFiDiagnostic_DiagnosticsState, "neighboringwifi", 0x80000U}}) {
    const std::string state = std::string("/tmp/diag/") + name + "_state";
    const Effects asked = {writes(state, "Requested")};
    expect_gets({{handler, as_is, "None", "FTGDS.\n"},
                 {handler, file(state, ""), "None"},
                 {handler, file(state, "Complete\nmore\n"), "Complete\n"},
                 {handler, file(state, std::string(120, 's')), std::string(99, 's')}});
    expect_sets({{handler, "Requested", accepted(bit), asked},
                 {handler, "Requested", accepted(bit), asked, file(state, "Complete, long ago")},
                 {handler, "Requested ", kRefused, {}, file(state, "Complete")},
                 {handler, "Requested", kRefused, {logs("FTSDS.\n")}, no_file("/tmp/diag")}});
  }
}

TEST_F(Diagnostics, FixedTexts) {
  for (const parameter_handler one :
       {LOOKUP(NumberOfRepetitions), LOOKUP(ResultNumberOfEntries), IP_Diagnostics_IPv4PingSupported,
        IP_Diagnostics_IPv4TraceRouteSupported, IP_Diagnostics_IPv4UploadDiagnosticsSupported,
        IP_Diagnostics_IPv4DownloadDiagnosticsSupported, IP_Diagnostics_IPv4UDPEchoDiagnosticsSupported})
    expect_gets({{one, as_is, "1"}});
  expect_gets({{TRACE(ResponseTime), as_is, "0"},
               {UPLOAD(UploadTransports), as_is, "HTTP"},
               {DOWNLOAD(DownloadTransports), as_is, "HTTP"},
               {UPLOAD(UploadDiagnosticsMaxConnections), as_is, "9"},
               {DOWNLOAD(DownloadDiagnosticMaxConnections), as_is, "9"}});
}

// An input's option, what is replied without it, values that it takes, values that it does not and why, and its bit.
struct Input {
  parameter_handler handler;
  std::string name;
  Reply missing;
  std::vector<std::string> taken;
  std::vector<std::string> refused = {};
  Effects why = {};
  uint32_t bit = 0;
};

TEST_F(Diagnostics, InputsAreCheckedThenStoredAsGiven) {
  const std::vector<std::string> hosts = {"host.lan", "192.0.2.1"};
  const std::vector<std::string> no_hosts = {"", "-host.lan", std::string(257, 'a')};
  const Effects host_check = {logs("Host check failed.\n")};
  const std::vector<std::string> text = {"any text"};
  const std::string url = "http://acs.example.net:7547/acs";
  const Input inputs[] = {
      {PING(Host), "host", "", hosts, no_hosts, host_check},
      {TRACE(Host), "host", "", hosts, no_hosts, host_check},
      {LOOKUP(HostName), "nslookupHost", "", hosts, no_hosts, host_check},
      {LOOKUP(DNSServer), "nslookupDnsserver", "", text},
      {PING(NumberOfRepetitions), "count", kGetFailed, {"", "0", "12345678"}, {"1x", "-1", " 1"}},
      {PING(Timeout), "timeout", kGetFailed, {"0", "999999"}, {"1000000", "1s"}},
      {PING(DataBlockSize), "pktsize", kGetFailed, {"1", "65535"}, {"0", "65536", "12a", ""}},
      {TRACE(NumberOfTries), "count", kGetFailed, {"1", "3"}, {"0", "4", "10", "03", "x", "", "2x"}},
      {TRACE(MaxHopCount), "ttl", kGetFailed, {"1", "30", "5x", " 7"}, {"0", "31", "-1", "007", "x5", ""}},
      {UPLOAD(NumberOfConnections), "numberOfConnections", "4", {"1", "9", "5x", "007"}, {"0", "10", "-1", "x5"}},
      {DOWNLOAD(NumberOfConnections), "numberOfConnections", "4", {"9"}, {"10"}},
      {UPLOAD(TestFileLength), "testFileLength", "1024", text},
      {UPLOAD(UploadURL), "uploadURL", url, text},
      {DOWNLOAD(DownloadURL), "downloadURL", url, text},
      {ECHO(Enable), "udpecho_enable", "0", text, {}, {}, 0x20000},
      {ECHO(UDPPort), "udpecho_UDPPort", "7", {"1", "65534", "7x"}, {"65535", "0", "-1", "x7", ""}, {}, 0x20000},
  };
  const auto expect_input = [](const Input& input) {
    const std::string path = "cwmp.params." + input.name;
    expect_options({{input.handler, path, input.missing}});
    for (const std::string& value : input.taken) expect_stored(input.handler, value, path, value, input.bit);
    for (const std::string& value : input.refused) expect_sets({{input.handler, value, kRefused, input.why}});
  };
  for (const Input& input : inputs) expect_input(input);
  const Effects no_address = {logs("mal format ip\n")};
  expect_input({ECHO(SourceIPAddress), "udpecho_sourceIPAddress", "", {"192.0.2.1"}, no_hosts, no_address, 0x20000});
  expect_gets({{UPLOAD(UploadURL), no_file("/etc/config/cwmp"), ""}});
}

TEST_F(Diagnostics, PingResultsAreWhatFollowsTheKey) {
  for (const auto& [handler, name] : {std::pair{&PING(SuccessCount), "Recv"},
                                      {PING(FailureCount), "Lost"},
                                      {PING(AverageResponseTime), "Avg"},
                                      {PING(MinimumResponseTime), "Min"},
                                      {PING(MaximumResponseTime), "Max"}}) {
    const std::string key = name;
    const auto ping = [](const std::string& text) { return result("ping", text); };
    expect_gets({{handler, as_is, "0", "FTGDS.\n"},
                 {handler, ping("Re=1\n " + key + "=2\n" + key.substr(1) + "=3\n"), ""},
                 {handler, ping("other=1\n" + key + "=4\n" + key + "=5"), "4\n"},
                 {handler, ping(key + ": 7 of 8"), " 7 of 8"},
                 {handler, ping(key + "imum=9\n"), "mum=9\n"},
                 {handler, ping(key), ""},
                 {handler, ping(key + "\n"), ""},
                 {handler, ping(std::string(99, '.') + key + "=7\n"), "7\n"},
                 {handler, ping(key + std::string(120, '7')), std::string(98 - key.size(), '7')}});
  }
}

TEST_F(Diagnostics, TransferAndLookupResultsAreTheValueOfTheKey) {
  const struct {
    std::string test, key;
    std::vector<parameter_handler> handlers;
    const char* log;
    const char* missing = "0";
  } results[] = {
      {"upload", "TotalBytesSend", {UPLOAD(TotalBytesSent)}, "FTGDUR.\n"},
      {"upload",
       "bomtime_utc",
       {UPLOAD(BOMTime), UPLOAD(ROMTime), UPLOAD(TCPOpenRequestTime), UPLOAD(TCPOpenResponseTime)},
       "FTGDUR.\n"},
      {"upload", "eomtime_utc", {UPLOAD(EOMTime)}, "FTGDUR.\n"},
      {"download", "total_bytes", {DOWNLOAD(TotalBytesReceived)}, "FTGDDR.\n"},
      {"download", "bytes_recv", {DOWNLOAD(TestBytesReceived)}, "FTGDDR.\n"},
      {"download",
       "bomtime_utc",
       {DOWNLOAD(BOMTime), DOWNLOAD(ROMTime), DOWNLOAD(TCPOpenRequestTime), DOWNLOAD(TCPOpenResponseTime)},
       "FTGDDR.\n"},
      {"download", "eomtime_utc", {DOWNLOAD(EOMTime)}, "FTGDDR.\n"},
      {"nslookup", "SuccessCount", {LOOKUP(SuccessCount)}, "FTGNSR.\n", ""},
      {"nslookup", "Status", {LOOKUP(Result_Status)}, "FTGNSR.\n", ""},
      {"nslookup", "IPAddresses", {LOOKUP(Result_IPAddresses)}, "FTGNSR.\n", ""},
      {"nslookup", "DNSServerIP", {LOOKUP(Result_DNSServerIP)}, "FTGNSR.\n", ""},
  };
  no_status("network.interface.wan").put();
  for (const auto& [test, key, handlers, log, missing] : results) {
    const std::string others = "other=1\n" + key + "2=2\n" + key.substr(1) + "=3\n";
    const std::string long_line = std::string(99, '=') + key + "=" + std::string(120, 'v');
    for (const parameter_handler handler : handlers)
      expect_gets({{handler, as_is, missing, log},
                   {handler, result(test, others + key), ""},
                   {handler, result(test, others + key + "=\n" + key + "=second\n"), ""},
                   {handler, result(test, others + key + "=a = b\n" + key + "=second\n"), "a = b"},
                   {handler, result(test, long_line), std::string(98 - key.size(), 'v')}});
  }
}

TEST_F(Diagnostics, ALookupThatDoesNotNameItsServerHasAskedTheWans) {
  result("nslookup", "Status=Success\nDNSServerIP2=192.0.2.9").put();
  const std::string server(60, '1');
  const auto servers = [](const std::string& list) {
    return status("network.interface.wan", R"({"dns-server": [)" + list + "]}");
  };
  expect_gets(
      {{LOOKUP(Result_DNSServerIP), servers(R"("192.0.2.1", "192.0.2.2")"), "192.0.2.1,192.0.2.2"},
       {LOOKUP(Result_DNSServerIP), servers('"' + server + R"(", ")" + server + '"'), server + "," + server.substr(22)},
       {LOOKUP(Result_DNSServerIP), servers(""), ""}});
}

// ---- Hops ----

Source tries(const std::string& count) { return option("cwmp.params.count", count); }

Source trace(const std::string& line, const std::string& count = "3") {
  return result("trace", "Hops=2\n1 0.1 0.2 0.3 first 192.0.2.1\n" + line) && tries(count);
}

TEST_F(Diagnostics, AHopIsThePhysicalLineOfItsNumber) {
  for (const auto& [handler, text, log] : {std::tuple{&TRACE(RouteHops_HopHost), "first", "first.\n"},
                                           {TRACE(RouteHops_HopHostAddress), "192.0.2.1", ""},
                                           {TRACE(RouteHops_HopErrorCode), "0", ""},
                                           {TRACE(RouteHops_HopRTTimes), "0.1,0.2,0.3,", "0.1,0.2,0.3,\n"}}) {
    expect_gets({{At{handler, {1}}, trace(""), text, log},
                 {At{handler, {2}}, trace("", ""), kUntouched},  // the end comes before the count
                 {At{handler, {1}}, trace("", ""), kGetFailed},
                 {At{handler, {1}}, tries(""), "None", "FTGDS.\n"},
                 {At{handler, {0}}, trace(""), kGetFailed, "LE\n"}});
  }
  const At third{TRACE(RouteHops_HopHost), {3}};
  const At fourth{TRACE(RouteHops_HopHost), {4}};
  const std::string rest(51, 'x');
  const std::string long_line = std::string(99, '.') + rest;
  expect_gets({{fourth, trace(long_line + "\n2 0 0 0 fourth 192.0.2.4"), "fourth", "fourth.\n"},
               {third, trace(long_line, "-1"), rest, rest + ".\n"},
               {TRACE(RouteHopsNumberOfEntries), trace(""), "2\n"},
               {TRACE(RouteHopsNumberOfEntries), result("trace", "1 1 gw 192.0.2.1\nHops:9"), "9"},
               {TRACE(RouteHopsNumberOfEntries), result("trace", "hops=1\n"), ""},
               {TRACE(RouteHopsNumberOfEntries), as_is, "0", "FTGDS.\n"}});
}

TEST_F(Diagnostics, PartsOfAHopAreCountedByTheTries) {
  const std::string gw = "gw.example";
  const std::string ip = "10.0.0.1";
  const std::string three = "1.1,1.2,1.3,";
  const struct {
    std::string line, count, host, address, error, times;
    std::string log = host + ".\n";
  } lines[] = {
      {"2 1.1 1.2 1.3 gw.example 10.0.0.1\n", "5", gw, ip, "0", three},
      {"2 1.1 1.2 1.3 gw.example 10.0.0.1\n", "4294967297", gw, ip, "0", three},
      {"2 1.1 1.2 gw.example 10.0.0.1\n", "2", gw, ip, "0", "1.1,1.2,"},
      {"2 gw.example 10.0.0.1\n", "0", gw, ip, "0", ""},
      {"gw.example 10.0.0.1\n", "-1", gw, ip, "0", ""},
      {"gw.example 10.0.0.1\n", "-9", "None", "None", "0", "", ""},
      {"  2  1.1   1.2 1.3 gw.example  10.0.0.1\n", "3", gw, ip, "0", three},
      {"2 1.1 1.2 1.3 gw.example 10.0.0.12", "3", gw, ip, "0", three},
      {"2 1.1 1.2 1.3 gw.example 10.0.0.12 more\n", "3", gw, ip, "0", three},
      {"2 1.1 1.2 1.3 Timeout \n", "3", "None", "", "1", three, "Timeout.\n"},
      {"2 1.1 1.2 1.3 Timeouts\n", "3", "None", "None", "1", three, "Timeouts\n.\n"},
      {"2 1.1 1.2 1.3 Timeou x\n", "3", "Timeou", "x", "0", three},
      {"2 1.1 1.2 1.3\n", "3", "None", "None", "0", "1.1,1.2,1.3\n,", ""},
      {"2 1.1\n", "3", "None", "None", "0", "1.1\n,", ""},
  };
  for (const auto& [line, count, host, address, error, times, log] : lines) {
    SCOPED_TRACE(line + " count " + count);
    expect_gets({{At{TRACE(RouteHops_HopHost), {2}}, trace(line, count), host, log},
                 {At{TRACE(RouteHops_HopHostAddress), {2}}, trace(line, count), address},
                 {At{TRACE(RouteHops_HopErrorCode), {2}}, trace(line, count), error},
                 {At{TRACE(RouteHops_HopRTTimes), {2}}, trace(line, count), times, times + "\n"}});
  }
}

// ---- Both trees ----

// The handlers of the newer tree, told by their names, forward to those of the older one.
TEST_F(Diagnostics, BothTreesAreOne) {
  const std::pair<std::string, std::string> prefixes[] = {
      {"IP_Diagnostics_IPPing_", "IPPingDiagnostics_"},
      {"IP_Diagnostics_TraceRoute_RouteHops_", "TraceRouteDiagnostics_RouteHops_Hop"},
      {"IP_Diagnostics_TraceRoute_", "TraceRouteDiagnostics_"},
      {"IP_Diagnostics_UploadDiagnostics_", "UploadDiagnostics_"},
      {"IP_Diagnostics_DownloadDiagnostics_", "DownloadDiagnostics_"},
      {"DNS_Diagnostics_NSLookupDiagnostics_", "NSLookupDiagnostics_"},
      {"IP_Diagnostics_UDPEchoConfig_", "UDPEchoConfig_"},
  };
  for (const Source& results :
       {result("ping", "Lost=1\nRecv=4\nAvg=12\nMin=3\nMax=20\n"), trace("2 1 2 3 gw.example 10.0.0.1\n"),
        result("upload", "TotalBytesSend=1\nbomtime_utc=2\neomtime_utc=3\n"),
        result("download", "total_bytes=4\nbomtime_utc=5\neomtime_utc=6\nbytes_recv=7\n"),
        result("nslookup", "SuccessCount=8\nStatus=9\nIPAddresses=10\nDNSServerIP=11\n")})
    results.put();
  for (const std::string state : {"ping", "trace", "upload", "download", "nslookup"})
    write_file("/tmp/diag/" + state + "_state", state);
  for (const std::string name :
       {"host", "timeout", "pktsize", "ttl", "nslookupHost", "nslookupDnsserver", "testFileLength", "uploadURL",
        "downloadURL", "udpecho_enable", "udpecho_sourceIPAddress", "udpecho_UDPPort"})
    configure("cwmp.params." + name, name);
  std::map<std::string, parameter_handler> workers;
  for (const Row& row : kCatalogue) workers[row.name] = row.handler;
  size_t forwarders = 0;
  for (const Row& row : kCatalogue) {
    const auto* const tree = std::find_if(std::begin(prefixes), std::end(prefixes),
                                          [&](const auto& prefix) { return row.name.starts_with(prefix.first); });
    if (tree == std::end(prefixes)) continue;
    const parameter_handler worker = workers[tree->second + row.name.substr(tree->first.size())];
    ASSERT_NE(worker, nullptr) << row.name;
    EXPECT_EQ(get(row.handler, {2}), get(worker, {2})) << row.name;
    EXPECT_EQ(set(row.handler, "2"), set(worker, "2")) << row.name;
    ++forwarders;
  }
  EXPECT_EQ(forwarders, 56U);
}

// ---- On the simulated router, whose programs do the tests ----

class DiagnosticsRun : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    if (run("/sbin/lab-internet 2>/dev/null") != 0) GTEST_SKIP() << "there is no network to test";
  }

  // Requests a test with these inputs and has it done, as the agent does; the final state.
  using Inputs = std::vector<std::pair<parameter_handler, std::string>>;
  static std::string done(const std::string& program, parameter_handler state, const Inputs& inputs) {
    for (const auto& [input, value] : inputs) EXPECT_EQ(set(input, value), accepted());
    EXPECT_EQ(set(state, "Requested").result, 0);
    const bool completed = run("/usr/bin/tr069/apply/" + program + "-diag >/dev/null 2>&1") == 0;
    const std::string text = get(state).text;
    EXPECT_EQ(completed, text == "Complete");
    return text;
  }
  static int number(parameter_handler handler, const Instances& instances = {1}) {
    return atoi(get(handler, instances).text.c_str());
  }
};

TEST_F(DiagnosticsRun, Ping) {
  const auto ping = [](const Inputs& inputs) { return done("ipping", IP_Diagnostics_IPPing_DiagnosticsState, inputs); };
  EXPECT_EQ(ping({{PING(Host), "www.example.net"}, {PING(NumberOfRepetitions), "2"}}), "Complete");
  EXPECT_EQ(get(PING(SuccessCount)), answered("2\n"));
  EXPECT_EQ(get(PING(FailureCount)), answered("0\n"));
  EXPECT_GE(number(PING(MinimumResponseTime)), 1);
  EXPECT_GE(number(PING(AverageResponseTime)), number(PING(MinimumResponseTime)));
  EXPECT_GE(number(PING(MaximumResponseTime)), number(PING(AverageResponseTime)));
  EXPECT_EQ(ping({{PING(Host), "203.0.113.200"}}), "Complete") << "nobody is there";
  EXPECT_EQ(get(PING(SuccessCount)), answered("0\n"));
  EXPECT_EQ(get(PING(FailureCount)), answered("2\n"));
  EXPECT_EQ(get(PING(AverageResponseTime)), answered("0\n"));
  EXPECT_EQ(ping({{PING(Host), "nowhere.example.net"}}), "Error_CannotResolveHostName");
  EXPECT_EQ(get(PING(FailureCount)), answered("0"));
  EXPECT_EQ(ping({{PING(Host), "www.example.net"}, {PING(DataBlockSize), "65535"}}), "Error_Other");
  EXPECT_EQ(ping({{PING(DataBlockSize), "56"}, {PING(NumberOfRepetitions), "0"}}), "Error_Other");
}

TEST_F(DiagnosticsRun, TraceRoute) {
  const auto trace_route = [](const Inputs& inputs) { return done("traceroute", TRACE(DiagnosticsState), inputs); };
  for (const auto& [tries, lost] : {std::pair{"2", "0,0,"}, {"5", "0,0,0,"}}) {  // five is for pings: a hop has three
    EXPECT_EQ(trace_route({{TRACE(Host), "www.example.net"}, {PING(NumberOfRepetitions), tries}}), "Complete");
    EXPECT_EQ(get(TRACE(RouteHopsNumberOfEntries)), answered("3\n"));
    for (const auto& [hop, name, address, error] : {std::tuple{1, "gw.isp.example", "192.0.2.1", "0"},
                                                    {2, "None", "None", "1"},
                                                    {3, "www.example.net", "203.0.113.80", "0"}}) {
      EXPECT_EQ(get(TRACE(RouteHops_HopHost), {hop}), answered(name));
      EXPECT_EQ(get(TRACE(RouteHops_HopHostAddress), {hop}), answered(address));
      EXPECT_EQ(get(TRACE(RouteHops_HopErrorCode), {hop}), answered(error));
      EXPECT_EQ(number(TRACE(RouteHops_HopRTTimes), {hop}) > 0, hop != 2);
    }
    EXPECT_EQ(get(TRACE(RouteHops_HopRTTimes), {2}), answered(lost));
  }
  EXPECT_EQ(trace_route({{TRACE(MaxHopCount), "2"}}), "Error_MaxHopCountExceeded");
  EXPECT_EQ(trace_route({{TRACE(Host), "nowhere.example.net"}}), "Error_CannotResolveHostName");
}

TEST_F(DiagnosticsRun, NameLookup) {
  const auto look_up = [](const std::string& host, const std::string& server) {
    return done("nslookup", LOOKUP(DiagnosticsState), {{LOOKUP(HostName), host}, {LOOKUP(DNSServer), server}});
  };
  for (const auto& [host, server, status, addresses, count] :
       {std::tuple{"www.example.net", "", "Success", "203.0.113.80", "1"},
        {"mirrors.example.net", "ns.isp.example", "Success", "203.0.113.80,203.0.113.81", "1"},
        {"nowhere.example.net", "192.0.2.53", "Error_HostNameNotResolved", "", "0"}}) {
    EXPECT_EQ(look_up(host, server), "Complete");
    EXPECT_EQ(get(LOOKUP(Result_Status)), answered(status));
    EXPECT_EQ(get(LOOKUP(Result_IPAddresses)), answered(addresses));
    EXPECT_EQ(get(LOOKUP(SuccessCount)), answered(count));
    EXPECT_EQ(get(LOOKUP(Result_DNSServerIP)), answered("192.0.2.53"));
  }
  EXPECT_EQ(look_up("www.example.net", "203.0.113.80"), "Complete");
  EXPECT_EQ(get(LOOKUP(Result_Status)), answered("Error_DNSServerNotAvailable"));
  EXPECT_EQ(look_up("www.example.net", "nowhere.example.net"), "Error_DNSServerNotResolved");
}

TEST_F(DiagnosticsRun, Download) {
  const auto download = [](const std::string& url) {
    return done("download", DOWNLOAD(DiagnosticsState),
                {{DOWNLOAD(DownloadURL), url}, {DOWNLOAD(NumberOfConnections), "3"}});
  };
  EXPECT_EQ(download("http://www.example.net/200000"), "Complete");
  const int received = number(DOWNLOAD(TestBytesReceived));
  EXPECT_GT(received, 3 * 200000);
  EXPECT_LT(received, 3 * (200000 + 500)) << "with the headers";
  EXPECT_GT(number(DOWNLOAD(TotalBytesReceived)), received);
  const std::string begin = get(DOWNLOAD(BOMTime)).text;
  EXPECT_GT(get(DOWNLOAD(EOMTime)).text, begin);
  EXPECT_EQ(begin.size(), std::string("2026-11-25T01:02:03.456789Z").size());
  EXPECT_EQ(download(""), "Complete") << "from the management server";
  EXPECT_EQ(download("http://www.example.net/missing"), "Error_TransferFailed");
  EXPECT_EQ(download("http://www.example.net:81/"), "Error_InitConnectionFailed");
  EXPECT_EQ(download("http://nowhere.example.net/"), "Error_CannotResolveHostName");
  EXPECT_EQ(download("ftp://www.example.net/"), "Error_Other");
  EXPECT_EQ(get(DOWNLOAD(TotalBytesReceived)), answered("0"));
}

TEST_F(DiagnosticsRun, Upload) {
  const auto upload = [](const std::string& url) {
    return done("upload", UPLOAD(DiagnosticsState),
                {{UPLOAD(UploadURL), url}, {UPLOAD(NumberOfConnections), "2"}, {UPLOAD(TestFileLength), "300000"}});
  };
  EXPECT_EQ(upload("http://www.example.net/files"), "Complete");
  EXPECT_GT(number(UPLOAD(TotalBytesSent)), 2 * 300000);
  EXPECT_GT(get(UPLOAD(EOMTime)).text, get(UPLOAD(BOMTime)).text);
  EXPECT_EQ(upload("http://www.example.net/missing"), "Error_NoTransferComplete");
  EXPECT_EQ(upload("http://www.example.net:81/"), "Error_InitConnectionFailed");
}

TEST_F(DiagnosticsRun, UdpEcho) {
  const auto answers = [](parameter_handler input, const std::string& value, const std::string& host,
                          const std::string& port) {
    EXPECT_EQ(set(input, value), accepted(APPLY_UDP_ECHO));
    EXPECT_EQ(run("/usr/bin/tr069/apply/udp-echo"), 0);
    return run("/sbin/lab-internet " + host + " udp ask 192.0.2.10 " + port + " hello | grep -qx hello") == 0;
  };
  EXPECT_EQ(set(ECHO(SourceIPAddress), "203.0.113.80"), accepted(APPLY_UDP_ECHO));
  EXPECT_TRUE(answers(ECHO(Enable), "1", "www", "7"));
  EXPECT_FALSE(answers(ECHO(Enable), "1", "gw", "7"));
  EXPECT_FALSE(answers(ECHO(UDPPort), "7007", "www", "7"));
  EXPECT_TRUE(answers(ECHO(UDPPort), "7007", "www", "7007"));
  EXPECT_FALSE(answers(ECHO(Enable), "0", "www", "7007"));
}

TEST_F(DiagnosticsRun, NothingIsDoneUnlessItIsRequested) {
  write_file("/tmp/diag/ping_state", "Complete");
  EXPECT_EQ(run("/usr/bin/tr069/apply/ipping-diag >/dev/null"), 0);
  EXPECT_EQ(get(PING(DiagnosticsState)), answered("Complete"));
}

}  // namespace
}  // namespace kova::test
