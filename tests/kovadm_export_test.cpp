// kovadm export: the documents and the table tell of the same parameters.
#include <pugixml.hpp>
#include <set>
#include <sstream>

#include "support/kovadm.hpp"

namespace kova::test {
namespace {

pugi::xml_document parsed(const std::string& arguments) {
  pugi::xml_document document;
  EXPECT_TRUE(document.load_string(kovadm("export " + arguments).out.c_str())) << arguments;
  return document;
}

using Lines = std::set<std::string>;

// "PATH ACCESS" of each parameter, which names itself and its object by one of these attributes.
Lines parameters_of(const pugi::xml_document& document) {
  Lines lines;
  for (const auto& found : document.select_nodes("/*/model/object/parameter")) {
    const auto name = [](pugi::xml_node node) {
      return std::string(node.attribute("ref").value()) + node.attribute("name").value() +
             node.attribute("base").value();
    };
    const pugi::xml_node parameter = found.node();
    const std::string path = name(parameter.parent()) + name(parameter);
    EXPECT_TRUE(lines.insert(path + " " + parameter.attribute("access").value()).second) << path;
  }
  return lines;
}

// The same of the table, as far as their model is this one; without one of all.
Lines rows_of(const std::string& tree, const std::string& model) {
  Lines lines;
  for (const std::string& row : kovadm("export --format csv " + tree).lines()) {
    std::vector<std::string> cells;
    std::istringstream stream(row);
    for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
    if (cells.at(0) == "path" || (!model.empty() && cells.at(4) != model)) continue;
    lines.insert(cells[0] + (cells.at(1) == "read-only" ? " readOnly" : " readWrite"));
  }
  return lines;
}

TEST_F(Kovadm, ExportsTellOfTheSameParameters) {
  std::set<std::string> identities;
  for (const std::string tree : {"Device", "InternetGatewayDevice"}) {
    const pugi::xml_document device = parsed(tree);
    const pugi::xml_document vendor = parsed("--format vendor-model " + tree);
    EXPECT_EQ(parameters_of(device), rows_of(tree, ""));
    EXPECT_EQ(parameters_of(vendor), rows_of(tree, "vendor"));
    EXPECT_EQ(vendor.select_nodes("//parameter[not(syntax/*)]").size(), 0U);
    EXPECT_EQ(device.first_child().next_sibling().child("model").attribute("ref").value(),
              std::string(vendor.first_child().next_sibling().child("model").attribute("name").value()));
    identities.insert(device.select_node("/*/@uuid").attribute().value());
  }
  EXPECT_EQ(identities.size(), 2U);
  EXPECT_EQ(rows_of("", "").size(), 615U);
  EXPECT_EQ(kovadm("export Nothing").status, 2);
}

TEST_F(Kovadm, ExportsDoWhatTheirPageShows) { expect_examples_of(EXPORT_PAGE, 4); }

}  // namespace
}  // namespace kova::test
