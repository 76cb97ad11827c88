// The tests that the server asks for: how they are requested, their inputs, and how their results are read.
#include "pkg-diag/pkg-diag.h"
#include "support/catalogue.hpp"
#include "support/tables.hpp"

namespace kova::test {
namespace {

class Diagnostics : public TableTest {};

const std::string kPingResult = "/tmp/diag/ping_result";
const std::string kTraceResult = "/tmp/diag/trace_result";
const std::string kUploadResult = "/tmp/diag/upload_result";
const std::string kDownloadResult = "/tmp/diag/download_result";
const std::string kLookupResult = "/tmp/diag/nslookup_result";

Source param(const std::string& name, const std::string& value) { return option("cwmp.params." + name, value); }
std::string stores_param(const std::string& name, const std::string& value) {
  return stores("cwmp.params." + name, value);
}

const Source kNoStore = no_file("/etc/config/cwmp");

TEST_F(Diagnostics, AreRequestedAndReportThroughTheirStateFiles) {
  const struct {
    parameter_handler handler;
    std::string state;
    uint32_t bit;
  } tests[] = {
      {IPPingDiagnostics_DiagnosticsState, "/tmp/diag/ping_state", 0x40},
      {TraceRouteDiagnostics_DiagnosticsState, "/tmp/diag/trace_state", 0x80},
      {UploadDiagnostics_DiagnosticsState, "/tmp/diag/upload_state", 0x8000},
      {DownloadDiagnostics_DiagnosticsState, "/tmp/diag/download_state", 0x10000},
      {NSLookupDiagnostics_DiagnosticsState, "/tmp/diag/nslookup_state", 0x40000},
  };
  for (const auto& [handler, state, bit] : tests) {
    expect_gets({{handler, as_is, "None", "FTGDS.\n"},
                 {handler, file(state, ""), "None"},
                 {handler, file(state, "Complete\nmore\n"), "Complete\n"},
                 {handler, file(state, std::string(120, 's')), std::string(99, 's')}});
    expect_sets({{handler, "Requested", accepted(bit), {writes(state, "Requested")}},
                 {handler, "Requested", accepted(bit), {writes(state, "Requested")}, file(state, "Complete, long ago")},
                 {handler, "requested", kRefused},
                 {handler, "Requested ", kRefused, {}, file(state, "Complete")},
                 {handler, "Requested", kRefused, {logs("FTSDS.\n")}, no_file("/tmp/diag")}});
  }
}

TEST_F(Diagnostics, InputsAreReadFromTheStore) {
  const auto expect_input = [](parameter_handler handler, const char* name, const Reply& fallback) {
    expect_gets({{handler, param(name, "given"), "given"}, {handler, param(name, ""), fallback}});
  };
  expect_input(IPPingDiagnostics_Host, "host", "");
  expect_input(IPPingDiagnostics_NumberOfRepetitions, "count", kGetFailed);
  expect_input(IPPingDiagnostics_Timeout, "timeout", kGetFailed);
  expect_input(IPPingDiagnostics_DataBlockSize, "pktsize", kGetFailed);
  expect_input(TraceRouteDiagnostics_Host, "host", "");
  expect_input(TraceRouteDiagnostics_NumberOfTries, "count", kGetFailed);
  expect_input(TraceRouteDiagnostics_MaxHopCount, "ttl", kGetFailed);
  expect_input(NSLookupDiagnostics_HostName, "nslookupHost", "");
  expect_input(NSLookupDiagnostics_DNSServer, "nslookupDnsserver", "");
  expect_input(UploadDiagnostics_NumberOfConnections, "numberOfConnections", "4");
  expect_input(DownloadDiagnostics_NumberOfConnections, "numberOfConnections", "4");
  expect_input(UploadDiagnostics_TestFileLength, "testFileLength", "1024");
  expect_input(UploadDiagnostics_UploadURL, "uploadURL", "http://acs.example.net:7547/acs");
  expect_input(DownloadDiagnostics_DownloadURL, "downloadURL", "http://acs.example.net:7547/acs");
  expect_input(UDPEchoConfig_Enable, "udpecho_enable", "0");
  expect_input(UDPEchoConfig_SourceIPAddress, "udpecho_sourceIPAddress", "");
  expect_input(UDPEchoConfig_UDPPort, "udpecho_UDPPort", "7");
  expect_gets({{UploadDiagnostics_UploadURL, kNoStore, ""}});
}

TEST_F(Diagnostics, FixedTexts) {
  for (const auto& [handler, text] : std::vector<std::pair<parameter_handler, const char*>>{
           {NSLookupDiagnostics_NumberOfRepetitions, "1"},
           {NSLookupDiagnostics_ResultNumberOfEntries, "1"},
           {TraceRouteDiagnostics_ResponseTime, "0"},
           {UploadDiagnostics_UploadTransports, "HTTP"},
           {UploadDiagnostics_UploadDiagnosticsMaxConnections, "9"},
           {DownloadDiagnostics_DownloadTransports, "HTTP"},
           {DownloadDiagnostics_DownloadDiagnosticMaxConnections, "9"},
           {IP_Diagnostics_IPv4PingSupported, "1"},
           {IP_Diagnostics_IPv4TraceRouteSupported, "1"},
           {IP_Diagnostics_IPv4UploadDiagnosticsSupported, "1"},
           {IP_Diagnostics_IPv4DownloadDiagnosticsSupported, "1"},
           {IP_Diagnostics_IPv4UDPEchoDiagnosticsSupported, "1"}})
    expect_gets({{handler, as_is, text}});
}

// A setter's option, bit and, for refused values, message; values that it takes, values that it does not.
struct Input {
  parameter_handler handler;
  std::string name;
  std::vector<std::string> taken;
  std::vector<std::string> refused = {};
  Effects why = {};
  uint32_t bit = 0;
};

TEST_F(Diagnostics, InputsAreCheckedThenStoredAsGiven) {
  const std::vector<std::string> hosts = {"host.lan", "192.0.2.1"};
  const std::vector<std::string> no_hosts = {"", "-host.lan", std::string(257, 'a')};
  const Effects host_check = {logs("Host check failed.\n")};
  const Input inputs[] = {
      {IPPingDiagnostics_Host, "host", hosts, no_hosts, host_check},
      {TraceRouteDiagnostics_Host, "host", hosts, no_hosts, host_check},
      {NSLookupDiagnostics_HostName, "nslookupHost", hosts, no_hosts, host_check},
      {NSLookupDiagnostics_DNSServer, "nslookupDnsserver", {"any text"}},
      {IPPingDiagnostics_NumberOfRepetitions, "count", {"0", "12345678"}, {"1x", "-1", " 1"}},
      {IPPingDiagnostics_Timeout, "timeout", {"0", "999999"}, {"1000000", "1s"}},
      {IPPingDiagnostics_DataBlockSize, "pktsize", {"1", "65535"}, {"0", "65536", "12a", ""}},
      {TraceRouteDiagnostics_NumberOfTries, "count", {"1", "3"}, {"0", "4", "10", "03", "x", "", "2x"}},
      {TraceRouteDiagnostics_MaxHopCount, "ttl", {"1", "30", "5x", " 7"}, {"0", "31", "-1", "100", "007", "x5", ""}},
      {UploadDiagnostics_NumberOfConnections, "numberOfConnections", {"1", "9", "5x", "007"}, {"0", "10", "-1", "x5"}},
      {DownloadDiagnostics_NumberOfConnections, "numberOfConnections", {"9"}, {"10"}},
      {UploadDiagnostics_TestFileLength, "testFileLength", {"any text"}},
      {UploadDiagnostics_UploadURL, "uploadURL", {"any text"}},
      {DownloadDiagnostics_DownloadURL, "downloadURL", {"any text"}},
      {UDPEchoConfig_Enable, "udpecho_enable", {"1", "any text"}, {}, {}, 0x20000},
      {UDPEchoConfig_SourceIPAddress,
       "udpecho_sourceIPAddress",
       {"192.0.2.1"},
       {"", "host.lan", "1.2.3.04"},
       {logs("mal format ip\n")},
       0x20000},
      {UDPEchoConfig_UDPPort, "udpecho_UDPPort", {"1", "65534", "7x"}, {"65535", "0", "-1", "x7", ""}, {}, 0x20000},
  };
  for (const Input& input : inputs) {
    for (const std::string& value : input.taken)
      expect_sets({{input.handler,
                    value,
                    accepted(input.bit),
                    {stores_param(input.name, value)},
                    param(input.name, "before")}});
    for (const std::string& value : input.refused) expect_sets({{input.handler, value, kRefused, input.why}});
    expect_sets({{input.handler, input.taken[0], kRefused, {}, kNoStore}});
  }
  expect_sets({{IPPingDiagnostics_NumberOfRepetitions, "", accepted(), {stores_param("count", "")}}});
}

const Source kPing = file(kPingResult, "Lost=1\nRecv=4\nRecv=5\nAvg=12\nMin=3\nMax=20");

TEST_F(Diagnostics, PingResultsAreWhatFollowsTheKey) {
  for (const parameter_handler handler :
       {IPPingDiagnostics_SuccessCount, IPPingDiagnostics_FailureCount, IPPingDiagnostics_AverageResponseTime,
        IPPingDiagnostics_MinimumResponseTime, IPPingDiagnostics_MaximumResponseTime})
    expect_gets({{handler, as_is, "0", "FTGDS.\n"}, {handler, file(kPingResult, ""), ""}});
  expect_gets(
      {{IPPingDiagnostics_SuccessCount, kPing, "4\n"},
       {IPPingDiagnostics_FailureCount, kPing, "1\n"},
       {IPPingDiagnostics_AverageResponseTime, kPing, "12\n"},
       {IPPingDiagnostics_MinimumResponseTime, kPing, "3\n"},
       {IPPingDiagnostics_MaximumResponseTime, kPing, "20"},
       {IPPingDiagnostics_SuccessCount, file(kPingResult, " Recv=1\nrecv=2\nRec=3\n"), ""},
       {IPPingDiagnostics_SuccessCount, file(kPingResult, "Recv: 7 of 8\n"), " 7 of 8\n"},
       {IPPingDiagnostics_MaximumResponseTime, file(kPingResult, "Maxi=9\n"), "=9\n"},
       {IPPingDiagnostics_SuccessCount, file(kPingResult, "Recv"), ""},
       {IPPingDiagnostics_SuccessCount, file(kPingResult, "Recv\n"), ""},
       {IPPingDiagnostics_SuccessCount, file(kPingResult, std::string(99, '.') + "Recv=7\n"), "7\n"},
       {IPPingDiagnostics_SuccessCount, file(kPingResult, "Recv=" + std::string(120, '7')), std::string(94, '7')}});
}

TEST_F(Diagnostics, TransferAndLookupResultsAreTheValueOfTheKey) {
  const struct {
    parameter_handler handler;
    std::string file_name;
    std::string key;
    const char* missing;
    const char* log;
  } results[] = {
      {UploadDiagnostics_TotalBytesSent, kUploadResult, "TotalBytesSend", "0", "FTGDUR.\n"},
      {UploadDiagnostics_BOMTime, kUploadResult, "bomtime_utc", "0", "FTGDUR.\n"},
      {UploadDiagnostics_ROMTime, kUploadResult, "bomtime_utc", "0", "FTGDUR.\n"},
      {UploadDiagnostics_TCPOpenRequestTime, kUploadResult, "bomtime_utc", "0", "FTGDUR.\n"},
      {UploadDiagnostics_TCPOpenResponseTime, kUploadResult, "bomtime_utc", "0", "FTGDUR.\n"},
      {UploadDiagnostics_EOMTime, kUploadResult, "eomtime_utc", "0", "FTGDUR.\n"},
      {DownloadDiagnostics_TotalBytesReceived, kDownloadResult, "total_bytes", "0", "FTGDDR.\n"},
      {DownloadDiagnostics_TestBytesReceived, kDownloadResult, "bytes_recv", "0", "FTGDDR.\n"},
      {DownloadDiagnostics_BOMTime, kDownloadResult, "bomtime_utc", "0", "FTGDDR.\n"},
      {DownloadDiagnostics_ROMTime, kDownloadResult, "bomtime_utc", "0", "FTGDDR.\n"},
      {DownloadDiagnostics_TCPOpenRequestTime, kDownloadResult, "bomtime_utc", "0", "FTGDDR.\n"},
      {DownloadDiagnostics_TCPOpenResponseTime, kDownloadResult, "bomtime_utc", "0", "FTGDDR.\n"},
      {DownloadDiagnostics_EOMTime, kDownloadResult, "eomtime_utc", "0", "FTGDDR.\n"},
      {NSLookupDiagnostics_SuccessCount, kLookupResult, "SuccessCount", "", "FTGNSR.\n"},
      {NSLookupDiagnostics_Result_Status, kLookupResult, "Status", "", "FTGNSR.\n"},
      {NSLookupDiagnostics_Result_IPAddresses, kLookupResult, "IPAddresses", "", "FTGNSR.\n"},
      {NSLookupDiagnostics_Result_DNSServerIP, kLookupResult, "DNSServerIP", "", "FTGNSR.\n"},
  };
  for (const auto& [handler, name, key, missing, log] : results) {
    const auto contains = [&](const std::string& text) {
      return file(name, text) && no_status("network.interface.wan");
    };
    const std::string others = "other=1\n" + key + "2=2\n" + key.substr(1) + "=3\n";
    expect_gets({{handler, no_file(name), missing, log},
                 {handler, contains(""), ""},
                 {handler, contains(others + key), ""},
                 {handler, contains(others + key + "=\n" + key + "=second\n"), ""},
                 {handler, contains(others + key + "=a = b\n" + key + "=second\n"), "a = b"},
                 {handler, contains(std::string(99, '=') + key + "=" + std::string(120, 'v')),
                  std::string(98 - key.size(), 'v')}});
  }
}

TEST_F(Diagnostics, ALookupThatDoesNotNameItsServerHasAskedTheWans) {
  const Source result = file(kLookupResult, "Status=Success\nDNSServerIP2=192.0.2.9");
  const auto servers = [&](const std::string& list) {
    return result && status("network.interface.wan", R"({"dns-server": [)" + list + "]}");
  };
  const std::string many = std::string(60, '1') + "," + std::string(60, '2');
  expect_gets({{NSLookupDiagnostics_Result_DNSServerIP, servers(R"("192.0.2.1", "192.0.2.2")"), "192.0.2.1,192.0.2.2"},
               {NSLookupDiagnostics_Result_DNSServerIP,
                servers('"' + std::string(60, '1') + R"(", ")" + std::string(60, '2') + '"'), many.substr(0, 99)},
               {NSLookupDiagnostics_Result_DNSServerIP, servers(""), ""},
               {NSLookupDiagnostics_Result_Status, servers(R"("192.0.2.1")"), "Success"}});
}

Source trace(const std::string& line, const std::string& count = "3") {
  return file(kTraceResult, "Hops=2\n1 0.1 0.2 0.3 first 192.0.2.1\n" + line) && param("count", count);
}

TEST_F(Diagnostics, AHopIsThePhysicalLineOfItsNumber) {
  const struct {
    parameter_handler handler;
    std::string text;
    std::string log;
  } parts[] = {{TraceRouteDiagnostics_RouteHops_HopHost, "first", "first.\n"},
               {TraceRouteDiagnostics_RouteHops_HopHostAddress, "192.0.2.1", ""},
               {TraceRouteDiagnostics_RouteHops_HopErrorCode, "0", ""},
               {TraceRouteDiagnostics_RouteHops_HopRTTimes, "0.1,0.2,0.3,", "0.1,0.2,0.3,\n"}};
  for (const auto& [handler, text, log] : parts) {
    expect_gets({{At{handler, {1}}, trace(""), text, log},
                 {At{handler, {2}}, trace("") && param("count", ""), kUntouched},  // the end comes before the count
                 {At{handler, {1}}, trace("") && param("count", ""), kGetFailed},
                 {At{handler, {1}}, param("count", ""), "None", "FTGDS.\n"},
                 {At{handler, {0}}, trace(""), kGetFailed, "LE\n"},
                 {At{handler, {-1}}, as_is, kGetFailed, "LE\n"}});
  }
  const std::string long_line(150, 'x');
  expect_gets({{At{TraceRouteDiagnostics_RouteHops_HopHost, {4}}, trace(long_line + "\n2 0 0 0 fourth 192.0.2.4"),
                "fourth", "fourth.\n"},
               {At{TraceRouteDiagnostics_RouteHops_HopHost, {3}}, trace(long_line, "-1"), long_line.substr(99),
                long_line.substr(99) + ".\n"}});
  expect_gets({{TraceRouteDiagnostics_RouteHopsNumberOfEntries, trace(""), "2\n"},
               {TraceRouteDiagnostics_RouteHopsNumberOfEntries, file(kTraceResult, "1 1 gw 192.0.2.1\nHops:9"), "9"},
               {TraceRouteDiagnostics_RouteHopsNumberOfEntries, file(kTraceResult, "hops=1\n"), ""},
               {TraceRouteDiagnostics_RouteHopsNumberOfEntries, as_is, "0", "FTGDS.\n"}});
}

TEST_F(Diagnostics, PartsOfAHopAreCountedByTheTries) {
  const struct {
    std::string line;
    std::string count;
    const char* host;
    const char* address;
    const char* error;
    const char* times;
    std::string host_log = std::string(host) + ".\n";
  } lines[] = {
      {"2 1.1 1.2 1.3 gw.example 10.0.0.1\n", "3", "gw.example", "10.0.0.1", "0", "1.1,1.2,1.3,"},
      {"2 1.1 1.2 1.3 gw.example 10.0.0.1\n", "5", "gw.example", "10.0.0.1", "0", "1.1,1.2,1.3,"},
      {"2 1.1 1.2 gw.example 10.0.0.1\n", "2", "gw.example", "10.0.0.1", "0", "1.1,1.2,"},
      {"2 gw.example 10.0.0.1\n", "0", "gw.example", "10.0.0.1", "0", ""},
      {"gw.example 10.0.0.1\n", "-1", "gw.example", "10.0.0.1", "0", ""},
      {"gw.example 10.0.0.1\n", "-9", "None", "None", "0", "", ""},
      {"  2  1.1   1.2 1.3 gw.example  10.0.0.1\n", "3", "gw.example", "10.0.0.1", "0", "1.1,1.2,1.3,"},
      {"2 1.1 1.2 1.3 gw.example 10.0.0.12", "3", "gw.example", "10.0.0.1", "0", "1.1,1.2,1.3,"},
      {"2 1.1 1.2 1.3 gw.example 10.0.0.12 more\n", "3", "gw.example", "10.0.0.1", "0", "1.1,1.2,1.3,"},
      {"2 1.1 1.2 1.3 Timeout \n", "3", "None", "", "1", "1.1,1.2,1.3,", "Timeout.\n"},
      {"2 1.1 1.2 1.3 Timeouts\n", "3", "None", "None", "1", "1.1,1.2,1.3,", "Timeouts\n.\n"},
      {"2 1.1 1.2 1.3 Timeou x\n", "3", "Timeou", "x", "0", "1.1,1.2,1.3,"},
      {"2 1.1 1.2 1.3\n", "3", "None", "None", "0", "1.1,1.2,1.3\n,", ""},
      {"2 1.1\n", "3", "None", "None", "0", "1.1\n,", ""},
  };
  for (const auto& [line, count, host, address, error, times, host_log] : lines) {
    SCOPED_TRACE(line + " count " + count);
    const Source source = trace(line, count);
    expect_gets({{At{TraceRouteDiagnostics_RouteHops_HopHost, {2}}, source, host, host_log},
                 {At{TraceRouteDiagnostics_RouteHops_HopHostAddress, {2}}, source, address},
                 {At{TraceRouteDiagnostics_RouteHops_HopErrorCode, {2}}, source, error},
                 {At{TraceRouteDiagnostics_RouteHops_HopRTTimes, {2}}, source, times, std::string(times) + "\n"}});
  }
}

const Row& row(const std::string& name) {
  for (const Row& candidate : kCatalogue)
    if (candidate.name == name) return candidate;
  ADD_FAILURE() << "no " << name;
  return kCatalogue[0];
}

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
  kPing.put();
  trace("2 1 2 3 gw.example 10.0.0.1\n").put();
  write_file(kUploadResult, "TotalBytesSend=1\nbomtime_utc=2\neomtime_utc=3\n");
  write_file(kDownloadResult, "total_bytes=4\nbomtime_utc=5\neomtime_utc=6\nbytes_recv=7\n");
  write_file(kLookupResult, "SuccessCount=8\nStatus=9\nIPAddresses=10\nDNSServerIP=11\n");
  for (const char* state : {"ping", "trace", "upload", "download", "nslookup"})
    write_file(std::string("/tmp/diag/") + state + "_state", state);
  for (const char* name : {"host", "timeout", "pktsize", "ttl", "nslookupHost", "nslookupDnsserver", "testFileLength",
                           "uploadURL", "downloadURL", "udpecho_enable", "udpecho_sourceIPAddress", "udpecho_UDPPort"})
    configure(std::string("cwmp.params.") + name, name);
  size_t forwarders = 0;
  for (const Row& forwarder : kCatalogue) {
    for (const auto& [newer, older] : prefixes) {
      if (!forwarder.name.starts_with(newer)) continue;
      SCOPED_TRACE(forwarder.name);
      const Row& worker = row(older + forwarder.name.substr(newer.size()));
      EXPECT_EQ(get(forwarder.handler, {2}), get(worker.handler, {2}));
      EXPECT_EQ(forwarder.access, worker.access);
      for (const char* value : {"Requested", "2", "20"})
        EXPECT_EQ(set(forwarder.handler, value), set(worker.handler, value));
      ++forwarders;
      break;
    }
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

  // Requests a test and has it done, as the agent does; the final state.
  static std::string result_of(parameter_handler state, const std::string& program) {
    EXPECT_EQ(set(state, "Requested").result, 0);
    const bool completed = run("/usr/bin/tr069/apply/" + program + " >/dev/null 2>&1") == 0;
    const std::string text = get(state).text;
    EXPECT_EQ(completed, text == "Complete");
    return text;
  }
  static std::string ping(const std::string& host) {
    EXPECT_EQ(set(IPPingDiagnostics_Host, host), accepted());
    return result_of(IP_Diagnostics_IPPing_DiagnosticsState, "ipping-diag");
  }
  static std::string trace_route() { return result_of(TraceRouteDiagnostics_DiagnosticsState, "traceroute-diag"); }
  static std::string look_up(const std::string& host, const std::string& server) {
    EXPECT_EQ(set(NSLookupDiagnostics_HostName, host), accepted());
    EXPECT_EQ(set(NSLookupDiagnostics_DNSServer, server), accepted());
    return result_of(NSLookupDiagnostics_DiagnosticsState, "nslookup-diag");
  }
  static std::string download(const std::string& url) {
    EXPECT_EQ(set(DownloadDiagnostics_DownloadURL, url), accepted());
    return result_of(DownloadDiagnostics_DiagnosticsState, "download-diag");
  }
  static std::string upload(const std::string& url) {
    EXPECT_EQ(set(UploadDiagnostics_UploadURL, url), accepted());
    return result_of(UploadDiagnostics_DiagnosticsState, "upload-diag");
  }
  static int number(parameter_handler handler, const Instances& instances = {1}) {
    return atoi(get(handler, instances).text.c_str());
  }
};

TEST_F(DiagnosticsRun, Ping) {
  EXPECT_EQ(set(IPPingDiagnostics_NumberOfRepetitions, "2"), accepted());
  EXPECT_EQ(ping("www.example.net"), "Complete");
  EXPECT_EQ(get(IPPingDiagnostics_SuccessCount), answered("2\n"));
  EXPECT_EQ(get(IP_Diagnostics_IPPing_FailureCount), answered("0\n"));
  EXPECT_GE(number(IPPingDiagnostics_MinimumResponseTime), 1);
  EXPECT_GE(number(IPPingDiagnostics_AverageResponseTime), number(IPPingDiagnostics_MinimumResponseTime));
  EXPECT_GE(number(IPPingDiagnostics_MaximumResponseTime), number(IPPingDiagnostics_AverageResponseTime));
  EXPECT_EQ(ping("203.0.113.200"), "Complete") << "nobody is there";
  EXPECT_EQ(get(IPPingDiagnostics_SuccessCount), answered("0\n"));
  EXPECT_EQ(get(IPPingDiagnostics_FailureCount), answered("2\n"));
  EXPECT_EQ(get(IPPingDiagnostics_AverageResponseTime), answered("0\n"));
  EXPECT_EQ(ping("nowhere.example.net"), "Error_CannotResolveHostName");
  EXPECT_EQ(get(IPPingDiagnostics_FailureCount), answered("0"));
  EXPECT_EQ(set(IPPingDiagnostics_DataBlockSize, "65535"), accepted());
  EXPECT_EQ(ping("www.example.net"), "Error_Other") << "more than a packet can carry";
  EXPECT_EQ(set(IPPingDiagnostics_NumberOfRepetitions, "0"), accepted());
  EXPECT_EQ(ping("www.example.net"), "Error_Other");
}

TEST_F(DiagnosticsRun, TraceRoute) {
  EXPECT_EQ(set(TraceRouteDiagnostics_Host, "www.example.net"), accepted());
  for (const char* tries : {"2", "5"}) {  // five is for pings: a hop has three
    EXPECT_EQ(set(IPPingDiagnostics_NumberOfRepetitions, tries), accepted());
    EXPECT_EQ(trace_route(), "Complete");
    EXPECT_EQ(get(IP_Diagnostics_TraceRoute_RouteHopsNumberOfEntries), answered("3\n"));
    const char* const names[] = {"gw.isp.example", "None", "www.example.net"};
    const char* const addresses[] = {"192.0.2.1", "None", "203.0.113.80"};
    for (int32_t hop = 1; hop <= 3; ++hop) {
      EXPECT_EQ(get(TraceRouteDiagnostics_RouteHops_HopHost, {hop}), answered(names[hop - 1]));
      EXPECT_EQ(get(IP_Diagnostics_TraceRoute_RouteHops_HostAddress, {hop}), answered(addresses[hop - 1]));
      EXPECT_EQ(get(TraceRouteDiagnostics_RouteHops_HopErrorCode, {hop}), answered(hop == 2 ? "1" : "0"));
      EXPECT_EQ(number(TraceRouteDiagnostics_RouteHops_HopRTTimes, {hop}) > 0, hop != 2);
    }
    EXPECT_EQ(get(TraceRouteDiagnostics_RouteHops_HopRTTimes, {2}), answered(*tries == '2' ? "0,0," : "0,0,0,"));
  }
  EXPECT_EQ(set(TraceRouteDiagnostics_MaxHopCount, "2"), accepted());
  EXPECT_EQ(trace_route(), "Error_MaxHopCountExceeded");
  EXPECT_EQ(set(TraceRouteDiagnostics_Host, "nowhere.example.net"), accepted());
  EXPECT_EQ(trace_route(), "Error_CannotResolveHostName");
}

TEST_F(DiagnosticsRun, NameLookup) {
  const struct {
    const char *host, *server, *status, *addresses;
  } lookups[] = {{"www.example.net", "", "Success", "203.0.113.80"},
                 {"mirrors.example.net", "ns.isp.example", "Success", "203.0.113.80,203.0.113.81"},
                 {"nowhere.example.net", "192.0.2.53", "Error_HostNameNotResolved", ""}};
  for (const auto& [host, server, status, addresses] : lookups) {
    EXPECT_EQ(look_up(host, server), "Complete");
    EXPECT_EQ(get(NSLookupDiagnostics_Result_Status), answered(status));
    EXPECT_EQ(get(NSLookupDiagnostics_Result_IPAddresses), answered(addresses));
    EXPECT_EQ(get(NSLookupDiagnostics_SuccessCount), answered(*addresses == '\0' ? "0" : "1"));
    EXPECT_EQ(get(NSLookupDiagnostics_Result_DNSServerIP), answered("192.0.2.53"));
  }
  EXPECT_EQ(look_up("www.example.net", "203.0.113.80"), "Complete");
  EXPECT_EQ(get(NSLookupDiagnostics_Result_Status), answered("Error_DNSServerNotAvailable"));
  EXPECT_EQ(look_up("www.example.net", "nowhere.example.net"), "Error_DNSServerNotResolved");
}

TEST_F(DiagnosticsRun, Download) {
  EXPECT_EQ(set(DownloadDiagnostics_NumberOfConnections, "3"), accepted());
  EXPECT_EQ(download("http://www.example.net/200000"), "Complete");
  const int received = number(DownloadDiagnostics_TestBytesReceived);
  EXPECT_GT(received, 3 * 200000);
  EXPECT_LT(received, 3 * (200000 + 500)) << "with the headers";
  EXPECT_GT(number(DownloadDiagnostics_TotalBytesReceived), received);
  const std::string begin = get(DownloadDiagnostics_BOMTime).text;
  EXPECT_GT(get(IP_Diagnostics_DownloadDiagnostics_EOMTime).text, begin);
  EXPECT_EQ(begin.size(), std::string("2026-11-25T01:02:03.456789Z").size());
  EXPECT_EQ(download(""), "Complete") << "from the management server";
  EXPECT_EQ(download("http://www.example.net/missing"), "Error_TransferFailed");
  EXPECT_EQ(download("http://www.example.net:81/"), "Error_InitConnectionFailed");
  EXPECT_EQ(download("http://nowhere.example.net/"), "Error_CannotResolveHostName");
  EXPECT_EQ(download("ftp://www.example.net/"), "Error_Other");
  EXPECT_EQ(get(DownloadDiagnostics_TotalBytesReceived), answered("0"));
}

TEST_F(DiagnosticsRun, Upload) {
  EXPECT_EQ(set(UploadDiagnostics_NumberOfConnections, "2"), accepted());
  EXPECT_EQ(set(UploadDiagnostics_TestFileLength, "300000"), accepted());
  EXPECT_EQ(upload("http://www.example.net/files"), "Complete");
  EXPECT_GT(number(UploadDiagnostics_TotalBytesSent), 2 * 300000);
  EXPECT_GT(get(UploadDiagnostics_EOMTime).text, get(IP_Diagnostics_UploadDiagnostics_BOMTime).text);
  EXPECT_EQ(upload("http://www.example.net/missing"), "Error_NoTransferComplete");
  EXPECT_EQ(upload("http://www.example.net:81/"), "Error_InitConnectionFailed");
}

TEST_F(DiagnosticsRun, UdpEcho) {
  const auto apply = [] { EXPECT_EQ(run("/usr/bin/tr069/apply/udp-echo"), 0); };
  const auto answers = [](const std::string& host, const std::string& port) {
    return run("/sbin/lab-internet " + host + " udp ask 192.0.2.10 " + port + " hello | grep -qx hello") == 0;
  };
  EXPECT_EQ(set(UDPEchoConfig_SourceIPAddress, "203.0.113.80"), accepted(APPLY_UDP_ECHO));
  EXPECT_EQ(set(IP_Diagnostics_UDPEchoConfig_Enable, "1"), accepted(APPLY_UDP_ECHO));
  apply();
  EXPECT_TRUE(answers("www", "7"));
  EXPECT_FALSE(answers("gw", "7"));
  EXPECT_EQ(set(UDPEchoConfig_UDPPort, "7007"), accepted(APPLY_UDP_ECHO));
  apply();
  EXPECT_FALSE(answers("www", "7"));
  EXPECT_TRUE(answers("www", "7007"));
  EXPECT_EQ(set(UDPEchoConfig_Enable, "0"), accepted(APPLY_UDP_ECHO));
  apply();
  EXPECT_FALSE(answers("www", "7007"));
}

TEST_F(DiagnosticsRun, NothingIsDoneUnlessItIsRequested) {
  write_file("/tmp/diag/ping_state", "Complete");
  EXPECT_EQ(run("/usr/bin/tr069/apply/ipping-diag >/dev/null"), 0);
  EXPECT_EQ(get(IPPingDiagnostics_DiagnosticsState), answered("Complete"));
}

}  // namespace
}  // namespace kova::test
