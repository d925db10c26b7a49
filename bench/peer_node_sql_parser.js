// Times node-sql-parser: JSON {"dialect", "queries": {name: text}} in, {name: microseconds} of what it accepts out.
const { Parser } = require("node-sql-parser");

const names = { mssql: "transactsql", mysql: "mysql" };
const task = JSON.parse(require("fs").readFileSync(0, "utf8"));
const options = { database: names[task.dialect] };
const parser = new Parser();
const times = {};
for (const [name, text] of Object.entries(options.database ? task.queries : {})) {
    try {
        parser.astify(text, options);
    } catch (refused) {
        continue;
    }
    let best = Infinity;
    for (let run = 0; run < 30; ++run) {
        const begin = process.hrtime.bigint();
        parser.astify(text, options);
        best = Math.min(best, Number(process.hrtime.bigint() - begin) / 1000);
    }
    times[name] = best;
}
process.stdout.write(JSON.stringify(times));
