#include "host/picture.h"

#include <graphviz/gvc.h>

#include <memory>
#include <stdexcept>

namespace qzsql {

namespace {

struct FreeContext {
    void operator()(GVC_t* context) const { gvFreeContext(context); }
};

struct CloseGraph {
    void operator()(Agraph_t* graph) const { agclose(graph); }
};

class Layout {
 public:
    Layout(GVC_t* context, Agraph_t* graph) : context_(context), graph_(graph) {
        if (gvLayout(context, graph, "dot") != 0) throw std::runtime_error("Graphviz can't lay the tree out");
    }
    ~Layout() { gvFreeLayout(context_, graph_); }
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

 private:
    GVC_t* context_;
    Agraph_t* graph_;
};

}  // namespace

std::string DrawSvg(const std::string& dot) {
    const std::unique_ptr<GVC_t, FreeContext> context(gvContext());
    const std::unique_ptr<Agraph_t, CloseGraph> graph(agmemread(dot.c_str()));
    if (!context || !graph) throw std::runtime_error("Graphviz can't be used");
    const Layout layout(context.get(), graph.get());
    char* data = nullptr;
    unsigned length = 0;
    if (gvRenderData(context.get(), graph.get(), "svg", &data, &length) != 0) {
        throw std::runtime_error("Graphviz can't draw SVG; is its plug-in for it installed?");
    }
    const std::unique_ptr<char, void (*)(char*)> owner(data, gvFreeRenderData);
    return {data, length};
}

}  // namespace qzsql
