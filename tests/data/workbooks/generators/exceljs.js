// Rich texts, hyperlinks, formulas with results, a date, empty rows and a header in row 4.
const ExcelJS = require('exceljs');

const book = new ExcelJS.Workbook();
const sheet = book.addWorksheet('Fichier');
sheet.getCell('B2').value = 'Fichier clients';
sheet.getRow(4).values = ['Date', 'Nom du contact', 'E-mail', 'Tél. mobile', 'DÉPARTEMENT', 'Profession'];
sheet.getRow(5).values = [
  new Date(Date.UTC(2026, 0, 15)),
  { richText: [{ text: 'Anne ' }, { font: { bold: true }, text: 'Le Goff' }] },
  { text: 'anne@example.org', hyperlink: 'mailto:anne@example.org' },
  '0033 6 39 98 02 01',
  'Ille et Vilaine',
  ' Fleuriste ',
];
sheet.getRow(8).values = [
  null,
  { formula: 'CONCATENATE("Jean ","Roux")', result: 'Jean Roux' },
  { formula: 'LOWER("JEAN@EXAMPLE.ORG")', result: 'jean@example.org' },
  null,
  33,
];
sheet.getRow(9).values = [null, 'Léa', 'Léa <lea@example.org>, lea2@example.org', true, '2a – Ajaccio'];
sheet.getRow(10).values = [null, 'Sans département', 'sans@example.org'];
book.addWorksheet('Caché', { state: 'hidden' }).addRow(['Nom', 'Ville']);
book.xlsx.writeFile(process.argv[2]);
