#include "export/documents.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <pugixml.hpp>
#include <sstream>

#include "model/origin.hpp"

namespace kovadm {
namespace {

constexpr char kAboutModel[] =
    "Served beyond the published model. Only what begins with X_KOVA_ bears the vendor's prefix.";

// A published model, and the file that its publisher keeps it in.
struct Published {
  const char* root;
  const char* model;
  const char* file;
};

constexpr Published kPublished[] = {{"Device", "Device:2.17", "tr-181-2-17-0-cwmp.xml"},
                                    {"InternetGatewayDevice", "InternetGatewayDevice:1.14", "tr-098-1-8-0.xml"}};

const Published& published(const Node& root) {
  return *std::ranges::find(kPublished, root.name, [](const Published& each) { return std::string(each.root); });
}

// "X_KOVA_Device:2.17"
std::string vendor_name(const Node& root) { return std::string("X_KOVA_") + published(root).model; }

std::string vendor_file(const Node& root) { return "X_KOVA_" + root.name + ".xml"; }

// ---- Documents ----

std::string text_of(const pugi::xml_document& document) {
  std::ostringstream text;
  document.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
  return text.str();
}

void set(pugi::xml_node node, const char* name, const std::string& value) {
  node.append_attribute(name).set_value(value.c_str());
}

// The root element, whose parts have no namespace.
pugi::xml_node start(pugi::xml_document& document, const char* prefix, const char* space) {
  pugi::xml_node declaration = document.append_child(pugi::node_declaration);
  set(declaration, "version", "1.0");
  set(declaration, "encoding", "UTF-8");
  pugi::xml_node root = document.append_child((std::string(prefix) + ":document").c_str());
  set(root, (std::string("xmlns:") + prefix).c_str(), space);
  return root;
}

void import_model(pugi::xml_node document, const std::string& file, const std::string& model) {
  pugi::xml_node import = document.append_child("import");
  set(import, "file", file);
  set(import.append_child("model"), "name", model);
}

// Calls `add` for each object, outermost first, with its path.
void each_object(const Node& node, const std::string& path,
                 const std::function<void(const Node& object, const std::string& path)>& add) {
  const bool is_table = !node.children.empty() && node.children.front().name == kInstance;
  if (!is_table) add(node, path);
  for (const Node& child : node.children) {
    if (child.row == nullptr) each_object(child, path + child.name + ".", add);
  }
}

// Tables grow by themselves: the device lets nobody add rows.
pugi::xml_node add_object(pugi::xml_node model, const char* naming, const std::string& path) {
  const bool is_row = path.ends_with(std::string(kInstance) + ".");
  pugi::xml_node object = model.append_child("object");
  set(object, naming, path);
  set(object, "access", "readOnly");
  set(object, "minEntries", is_row ? "0" : "1");
  set(object, "maxEntries", is_row ? "unbounded" : "1");
  return object;
}

pugi::xml_node add_parameter(pugi::xml_node object, const char* naming, const Node& parameter) {
  pugi::xml_node node = object.append_child("parameter");
  set(node, naming, parameter.name);
  set(node, "access", parameter.row->access == Access::READ_ONLY ? "readOnly" : "readWrite");
  return node;
}

// ---- Types ----

void add_text(pugi::xml_node syntax, const char* longest) {
  pugi::xml_node text = syntax.append_child("string");
  if (longest != nullptr) set(text.append_child("size"), "maxLength", longest);
}

void add_syntax(pugi::xml_node parameter, Type type) {
  pugi::xml_node syntax = parameter.append_child("syntax");
  switch (type) {
    case Type::SECRET:
      set(syntax, "hidden", "true");
      return add_text(syntax, nullptr);
    case Type::LIST:
      syntax.append_child("list");
      return add_text(syntax, nullptr);
    case Type::STRING:
      return add_text(syntax, nullptr);
    case Type::IP_ADDRESS:
      return add_text(syntax, "45");
    case Type::MAC_ADDRESS:
      return add_text(syntax, "17");
    default:
      syntax.append_child(to_text(type).c_str());
  }
}

// ---- The two kinds ----

// Of the text: the same for the same document, and for no other.
std::string identity_of(const std::string& text) {
  uint64_t halves[] = {0xcbf29ce484222325, 0x84222325cbf29ce4};
  for (const char letter : text) {
    for (uint64_t& half : halves) half = (half ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
  }
  char digits[33] = {};
  std::snprintf(digits, sizeof digits, "%016llx%016llx", static_cast<unsigned long long>(halves[0]),
                static_cast<unsigned long long>(halves[1]));
  std::string identity = digits;
  identity[12] = '8';  // made by one's own rules
  identity[16] = '8';
  for (const std::size_t dash : {20U, 16U, 12U, 8U}) identity.insert(dash, "-");
  return identity;
}

}  // namespace

std::string device_type(const Node& root) {
  pugi::xml_document document;
  pugi::xml_node top = start(document, "dt", "urn:broadband-forum-org:cwmp:devicetype-1-4");
  set(top, "deviceType", "urn:kova:" + root.name);
  import_model(top, vendor_file(root), vendor_name(root));
  pugi::xml_node model = top.append_child("model");
  set(model, "ref", vendor_name(root));
  each_object(root, root.name + ".", [&](const Node& node, const std::string& path) {
    pugi::xml_node object = add_object(model, "ref", path);
    for (const Node& child : node.children) {
      if (child.row != nullptr) add_parameter(object, "ref", child);
    }
  });
  set(top, "uuid", identity_of(text_of(document)));
  return text_of(document);
}

std::string vendor_model(const Node& root) {
  pugi::xml_document document;
  pugi::xml_node top = start(document, "dm", "urn:broadband-forum-org:cwmp:datamodel-1-7");
  set(top, "spec", "urn:kova:" + vendor_name(root));
  set(top, "file", vendor_file(root));
  top.append_child("description").text().set(kAboutModel);
  import_model(top, published(root).file, published(root).model);
  pugi::xml_node model = top.append_child("model");
  set(model, "name", vendor_name(root));
  set(model, "base", published(root).model);
  each_object(root, root.name + ".", [&](const Node& node, const std::string& path) {
    const bool is_new = is_beyond_published(node, path);
    pugi::xml_node object;
    for (const Node& child : node.children) {
      if (child.row == nullptr || !is_extension(path + child.name)) continue;
      if (!object) object = add_object(model, is_new ? "name" : "base", path);
      add_syntax(add_parameter(object, "name", child), child.row->type);
    }
    if (is_new && !object) add_object(model, "name", path);
  });
  return text_of(document);
}

}  // namespace kovadm
