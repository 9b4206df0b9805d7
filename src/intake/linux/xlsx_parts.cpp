#include "intake/linux/xlsx_parts.h"

#include <cstddef>
#include <functional>
#include <map>
#include <new>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "intake/linux/zip_archive.h"

namespace tradebill {
namespace {

constexpr std::size_t kLargestPart = std::size_t{4} << 20;  // of those that only list others

/// Behind the prefix, if there is one.
std::string_view LocalName(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

/// The first of a node's children with this name, whatever prefix it has.
pugi::xml_node ChildOf(const pugi::xml_node& node, std::string_view name) {
    return node.find_child([&](const pugi::xml_node& child) { return LocalName(child.name()) == name; });
}

pugi::xml_attribute AttributeOf(const pugi::xml_node& node, std::string_view name) {
    return node.find_attribute([&](const pugi::xml_attribute& attribute) { return attribute.name() == name; });
}

bool Load(CZipArchive& archive, const std::string& part, pugi::xml_document& document) {
    const std::string bytes = archive.Read(part, kLargestPart);
    if (bytes.empty()) return false;
    const pugi::xml_parse_result result = document.load_buffer(bytes.data(), bytes.size());
    if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
    return result.status == pugi::status_ok;
}

/// A target as the relations of `part` have it: below the folder of the part, or from the top.
std::string PartAt(const std::string& part, std::string_view target) {
    constexpr std::string_view kUp = "../";
    if (target.starts_with('/')) return std::string(target.substr(1));
    std::string folder = part.substr(0, part.rfind('/') + 1);
    for (; target.starts_with(kUp) && !folder.empty(); target.remove_prefix(kUp.size())) {
        folder.pop_back();
        folder.erase(folder.rfind('/') + 1);
    }
    return folder + std::string(target);
}

struct Relations {
    std::map<std::string, std::string> byId;
    std::map<std::string, std::string, std::less<>> byKind;  ///< the last word of the type; the first of a kind
};

Relations RelationsOf(CZipArchive& archive, const std::string& part) {
    Relations relations;
    pugi::xml_document document;
    const std::size_t name = part.rfind('/') + 1;
    if (!Load(archive, part.substr(0, name) + "_rels/" + part.substr(name) + ".rels", document)) return relations;
    for (const pugi::xml_node& relation : document.document_element().children()) {
        const std::string_view kind = relation.attribute("Type").value();
        const std::string target = PartAt(part, relation.attribute("Target").value());
        relations.byId.try_emplace(relation.attribute("Id").value(), target);
        relations.byKind.try_emplace(std::string(kind.substr(kind.rfind('/') + 1)), target);
    }
    return relations;
}

std::string TargetOf(const Relations& relations, std::string_view kind) {
    const auto found = relations.byKind.find(kind);
    return found != relations.byKind.end() ? found->second : std::string();
}

/// The attribute that names the sheet's relation, "r:id" or with another prefix.
std::string RelationId(const pugi::xml_node& sheet) {
    for (const pugi::xml_attribute& attribute : sheet.attributes()) {
        const std::string_view name = attribute.name();
        if (name.find(':') != std::string_view::npos && LocalName(name) == "id") return attribute.value();
    }
    return {};
}

}  // namespace

XlsxParts FindXlsxParts(CZipArchive& archive) {
    XlsxParts parts;
    const std::string book = TargetOf(RelationsOf(archive, ""), "officeDocument");
    pugi::xml_document document;
    if (book.empty() || !Load(archive, book, document)) return parts;
    const Relations relations = RelationsOf(archive, book);
    const pugi::xml_node root = document.document_element();
    parts.texts = TargetOf(relations, "sharedStrings");
    parts.hasMacros = !TargetOf(relations, "vbaProject").empty();
    parts.countsFrom1904 = AttributeOf(ChildOf(root, "workbookPr"), "date1904").as_bool();
    for (const pugi::xml_node& sheet : ChildOf(root, "sheets").children()) {
        const auto part = relations.byId.find(RelationId(sheet));
        const bool isOfCells = part != relations.byId.end() && part->second.find("chartsheet") == std::string::npos;
        if (isOfCells) parts.sheets.push_back({sheet.attribute("name").value(), part->second});
    }
    return parts;
}

}  // namespace tradebill
