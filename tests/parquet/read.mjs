// Reads Parquet files back with three readers that have nothing to do with each other.
//
//   read.mjs compare FOLDER   every NAME.parquet against the messages in NAME.jsonl; prints a line
//                             for each file that differs, then how many files and rows were read
//   read.mjs query SQL        prints what DuckDB answers, as JSON
//
// The readers are those below the folder READERS.

import fs from 'node:fs';
import { createRequire } from 'node:module';
import path from 'node:path';

const modules = path.join(process.env.READERS, 'node_modules');
const require = createRequire(path.join(modules, 'x.js'));
const { DuckDBInstance } = require('@duckdb/node-api');
const { readParquet } = require('parquet-wasm/node');
const { tableFromIPC } = require('apache-arrow');
const { asyncBufferFromFile, parquetReadObjects } =
    await import(path.join(modules, 'hyparquet/src/node.js'));
const { compressors } = await import(path.join(modules, 'hyparquet-compressors/src/index.js'));

const flags = ['extended', 'remote', 'fd', 'brs', 'esi', 'error', 'flag_d', 'transmitted'];

function line(row) {
    return JSON.stringify([String(row.time), String(row.number), row.line, String(row.identifier),
        ...flags.map((name) => row[name]), row.length, row.data, row.note ?? null]);
}

function written(fileName) {
    const texts = fs.readFileSync(fileName, 'utf8').split('\n').filter((text) => text !== '');
    return texts.map((text) => {
        const message = JSON.parse(text);
        const hasData = !message.remote || /[^0]/.test(message.data);
        return line({ ...message, time: BigInt(message.seconds) * 1000000n
            + BigInt(message.microseconds), identifier: message.id, brs: message.flagC,
            esi: message.flagB, flag_d: message.flagD, transmitted: message.transmitted ?? false,
            data: hasData ? message.data.toLowerCase() : '' });
    });
}

const connection = await (await DuckDBInstance.create()).connect();

async function query(sql) {
    return (await connection.runAndReadAll(sql)).getRowObjectsJson();
}

async function readByDuckDb(fileName) {
    const rows = await query(`select * replace (epoch_us(time) as time, lower(hex(data)) as data)
        from read_parquet('${fileName}')`);
    return rows.map(line);
}

async function readByHyparquet(fileName) {
    const parsers = { timestampFromMicroseconds: (time) => time };
    const rows = await parquetReadObjects(
        { file: await asyncBufferFromFile(fileName), compressors, parsers, utf8: false });
    return rows.map((row) => line({ ...row, data: Buffer.from(row.data).toString('hex') }));
}

// A reader in Rust. Arrays have the times in microseconds, single values have them rounded.
async function readByParquetWasm(fileName) {
    const table = tableFromIPC(readParquet(fs.readFileSync(fileName)).intoIPCStream());
    const columns = table.schema.fields.map(({ name }) => [name, table.getChild(name).toArray()]);
    return Array.from({ length: table.numRows }, (_, at) => {
        const row = Object.fromEntries(columns.map(([name, values]) => [name, values[at]]));
        return line({ ...row, data: Buffer.from(row.data).toString('hex') });
    });
}

function difference(read, expected) {
    const at = expected.findIndex((text, row) => text !== read[row]);
    if (at >= 0)
        return `row ${at} is ${read[at]}, not ${expected[at]}`;
    return read.length > expected.length ? `${read.length} rows, not ${expected.length}` : '';
}

async function compare(folder) {
    const names = fs.readdirSync(folder).filter((name) => name.endsWith('.parquet'));
    let rows = 0;
    let differences = 0;
    for (const name of names) {
        const fileName = path.join(folder, name);
        const expected = written(fileName.replace(/parquet$/, 'jsonl'));
        rows += expected.length;
        for (const read of [readByDuckDb, readByHyparquet, readByParquetWasm]) {
            const text = await read(fileName).then((got) => difference(got, expected), String);
            if (text !== '')
                console.log(`${name}: ${read.name}: ${text}`);
            differences += text !== '';
        }
    }
    console.log(`${names.length} files, ${rows} rows, ${differences} differences`);
    process.exitCode = differences > 0 ? 1 : 0;
}

const [command, argument] = process.argv.slice(2);
if (command === 'compare')
    await compare(argument);
else
    console.log(JSON.stringify(await query(argument)));
