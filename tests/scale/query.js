// Runs a query of DuckDB, which may read standard input, and prints its rows as lines of values.
const { DuckDBInstance } = require('@duckdb/node-api');

async function main(query) {
  const instance = await DuckDBInstance.create(':memory:');
  const connection = await instance.connect();
  const reader = await connection.runAndReadAll(query);
  for (const row of reader.getRows()) {
    console.log(row.join(','));
  }
}

main(process.argv[2]).catch((error) => {
  console.error(error.message);
  process.exit(1);
});
