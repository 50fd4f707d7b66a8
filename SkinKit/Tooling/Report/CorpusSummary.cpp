#include "SkinKit/Tooling/Report/CorpusSummary.h"

namespace SkinKit {
namespace {

JSON toJSON(const CorpusSummary::Counts& counts)
{
    return JSON::Object{
        {"ok",                 counts.ok                },
        {"partial",            counts.partial           },
        {"failed",             counts.failed            },
        {"crashed",            counts.crashed           },
        {"timeout",            counts.timeout           },
        {"memory",             counts.memory            },
        {"mainWindowComplete", counts.mainWindowComplete}
    };
}

JSON toJSON(const CorpusSummary::Timing& timing)
{
    return JSON::Object{
        {"count",            timing.count           },
        {"medianMs",         timing.medianMs        },
        {"p95Ms",            timing.p95Ms           },
        {"p99Ms",            timing.p99Ms           },
        {"maxMs",            timing.maxMs           },
        {"totalMs",          timing.totalMs         },
        {"wallSeconds",      timing.wallSeconds     },
        {"peakFootprintMiB", timing.peakFootprintMiB}
    };
}

JSON toJSON(const CorpusSummary::Slow& slow)
{
    return JSON::Object{
        {"name",    slow.name   },
        {"md5",     slow.md5    },
        {"size",    slow.size   },
        {"entries", slow.entries},
        {"ms",      slow.ms     },
        {"status",  slow.status }
    };
}

JSON toJSON(const CorpusSummary::Example& example)
{
    return JSON::Object{
        {"name", example.name},
        {"md5",  example.md5 },
        {"url",  example.url }
    };
}

JSON toJSON(const CorpusSummary::FailureClass& failureClass);
JSON toJSON(const CorpusSummary::CrashLog& log);

template <typename Value>
JSON toJSON(const std::vector<Value>& values)
{
    JSON::Array array;
    for (const Value& value : values)
        array.push_back(toJSON(value));
    return array;
}

JSON toJSON(const CorpusSummary::FailureClass& failureClass)
{
    JSON::Object object{
        {"key",      failureClass.key             },
        {"count",    failureClass.count           },
        {"share",    failureClass.share           },
        {"examples", toJSON(failureClass.examples)}
    };
    if (failureClass.issue)
        object.emplace("issue", *failureClass.issue);
    return object;
}

JSON toJSON(const CorpusSummary::CrashLog& log)
{
    JSON::Object object{
        {"file",      log.file     },
        {"signature", log.signature}
    };
    if (log.skin)
        object.emplace("skin", toJSON(*log.skin));
    return object;
}

JSON toJSON(const CorpusSummary::SampleSection& sample)
{
    return JSON::Object{
        {"requested",    sample.requested     },
        {"seed",         sample.seed          },
        {"skins",        sample.skins         },
        {"classic",      sample.classic       },
        {"counts",       toJSON(sample.counts)},
        {"completeRate", sample.completeRate  }
    };
}

}

JSON CorpusSummary::json() const
{
    JSON::Object object{
        {"files",          files                 },
        {"unique",         unique                },
        {"duplicates",     duplicates            },
        {"modern",         modern                },
        {"classic",        classic               },
        {"counts",         toJSON(counts)        },
        {"okRate",         okRate                },
        {"partialRate",    partialRate           },
        {"failedRate",     failedRate            },
        {"completeRate",   completeRate          },
        {"timing",         toJSON(timing)        },
        {"slowest",        toJSON(slowest)       },
        {"failureClasses", toJSON(failureClasses)},
        {"crashed",        toJSON(crashed)       },
        {"crashLogs",      toJSON(crashLogs)     },
        {"sample",         toJSON(sample)        },
        {"gatePass",       gatePass              },
        {"gate",           gate                  }
    };
    if (environment)
        object.emplace("environment", *environment);
    return object;
}

}
