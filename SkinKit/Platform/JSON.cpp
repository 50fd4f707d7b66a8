#include "SkinKit/Platform/JSON.h"

#include <nlohmann/json.hpp>

namespace SkinKit {
namespace {

using Node = nlohmann::json; // sorts its keys

Node toNode(const JSON& json)
{
    struct Convert {
        Node operator()(std::monostate) const { return nullptr; }
        Node operator()(bool value) const { return value; }
        Node operator()(std::int64_t value) const { return value; }
        Node operator()(std::uint64_t value) const { return value; }
        Node operator()(double value) const { return value; }
        Node operator()(const std::string& value) const { return value; }
        Node operator()(const JSON::Array& array) const
        {
            Node node = Node::array();
            for (const JSON& element : array)
                node.push_back(toNode(element));
            return node;
        }
        Node operator()(const JSON::Object& object) const
        {
            Node node = Node::object();
            for (const auto& [key, element] : object)
                node[key] = toNode(element);
            return node;
        }
    };
    return std::visit(Convert{}, json.value());
}

constexpr int oneLine = -1;

}

std::string JSON::text() const
{
    return text(oneLine);
}

std::string JSON::text(int indent) const
{
    return toNode(*this).dump(indent, ' ', false, Node::error_handler_t::replace);
}

}
