// Texts inside the cells, columns in another order, repeated and unusable rows.
const XLSX = require('xlsx');

const rows = [
  ['Métier', 'CP', 'Commune', 'Courriel', 'Portable', 'Nom :'],
  ['Plombier', '35000', 'Rennes', null, '02 99 00 00 00 / 06-39-98-03-01', 'L’Œuvre'],
  [null, 35200, 'Rennes', 'OEUVRE@example.org', 639980301, 'L’Œuvre (bis)'],
  ['Maçon', '01000', null, 'macon@example.fr', '01 00 00 00 00', 'Ça & là <SARL>'],
  ['Maçon', '01000', null, ' Macon@Example.FR ', null, 'Ça et là'],
  [null, '6', null, 'court@example.org', null, 'Code trop court'],
  [null, '75001', 'Paris', 'pas une adresse', '+33 7 39 98 03', 'Numéro coupé'],
  [null, '75001', 'Paris', null, '07 39 98 03 02', '   '],
];
const book = XLSX.utils.book_new();
XLSX.utils.book_append_sheet(book, XLSX.utils.aoa_to_sheet(rows), 'Feuille');
XLSX.writeFile(book, process.argv[2]);
