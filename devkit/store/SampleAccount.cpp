#include "devkit/store/SampleAccount.h"

#include <string>

#include "devkit/base/Paths.h"
#include "devkit/base/Token.h"
#include "devkit/store/Contacts.h"
#include "devkit/store/Sharing.h"

namespace devkit {
namespace {

/// How a name was entered: both ways of writing occur in one book, as they do in real ones.
enum class Written { FirstLast, LastFirst };
using enum Written;

enum class Belongs { Listed, Newcomer, Outside };
using enum Belongs;

struct Person {
  const char *address;
  const char *first;
  const char *last;
  Written written;
  Belongs belongs = Listed;
};

constexpr Person kHolder = {"jordan.avery@brisvale.test", "Jordan", "Avery", FirstLast};
constexpr Person kOwner = {"margaret.holloway@brisvale.test", "Margaret", "Holloway", LastFirst};

constexpr Person kPeople[] = {
    kOwner,
    {"thomas.whitfield@brisvale.test", "Thomas", "Whitfield", LastFirst},
    {"olivia.bennett@brisvale.test", "Olivia", "Bennett", FirstLast},
    {"james.okafor@brisvale.test", "James", "Okafor", LastFirst},
    {"priya.raman@brisvale.test", "Priya", "Raman", LastFirst},
    {"zoe.lindqvist@brisvale.test", "Zoë", "Lindqvist", FirstLast},
    {"bjoern.aasen@brisvale.test", "Bjørn", "Aasen", LastFirst},
    {"francois.lefevre@brisvale.test", "François", "Lefèvre", LastFirst},
    {"maria.gonzalez@brisvale.test", "María José", "González Ruiz", LastFirst},
    {"juergen.mueller@brisvale.test", "Jürgen", "Müller", LastFirst},
    {"sean.oneill@brisvale.test", "Seán", "O'Neill", FirstLast},
    {"anna-lena.vogt@brisvale.test", "Anna-Lena", "Vogt", LastFirst},
    {"pieter.vandermeer@brisvale.test", "Pieter", "van der Meer", LastFirst},
    {"agnieszka.wozniak@brisvale.test", "Agnieszka", "Woźniak", LastFirst},
    {"istvan.szabo@brisvale.test", "István", "Szabó", FirstLast},
    {"ondrej.dvorak@brisvale.test", "Ondřej", "Dvořák", LastFirst},
    {"ioana.popescu@brisvale.test", "Ioana", "Popescu", FirstLast},
    {"gudrun.jonsdottir@brisvale.test", "Guðrún", "Jónsdóttir", FirstLast},
    {"cemile.yildiz@brisvale.test", "Cemile", "Yıldız", LastFirst},
    {"joao.carvalho@brisvale.test", "João", "Carvalho", LastFirst},
    {"giulia.deangelis@brisvale.test", "Giulia", "De Angelis", LastFirst},
    {"kenji.tanaka@brisvale.test", "健司", "田中", FirstLast},
    {"yuki.sato@brisvale.test", "Yuki", "Satō", LastFirst},
    {"li.wei@brisvale.test", "伟", "李", LastFirst},
    {"wang.fang@brisvale.test", "Fang", "Wang", LastFirst},
    {"kim.minji@brisvale.test", "민지", "김", FirstLast},
    {"anastasia.volkova@brisvale.test", "Анастасия", "Волкова", LastFirst},
    {"dmytro.shevchenko@brisvale.test", "Дмитро", "Шевченко", FirstLast},
    {"eleni.papadopoulou@brisvale.test", "Ελένη", "Παπαδοπούλου", LastFirst},
    {"yusuf.haddad@brisvale.test", "يوسف", "حداد", FirstLast},
    {"noa.levi@brisvale.test", "נועה", "לוי", FirstLast},
    {"ananya.iyer@brisvale.test", "अनन्या", "अय्यर", LastFirst},
    {"somchai.wattana@brisvale.test", "สมชาย", "วัฒนา", FirstLast},
    {"nguyen.thi.hoa@brisvale.test", "Thị Hoa", "Nguyễn", LastFirst},
    {"oluwaseun.adeyemi@brisvale.test", "Oluwaseun", "Adeyemi", LastFirst},
    {"amara.nwosu@brisvale.test", "Amara", "Nwosu", FirstLast},
    {"thandiwe.dlamini@brisvale.test", "Thandiwe", "Dlamini", LastFirst},
    {"keoni.kahale@brisvale.test", "Keoni", "Kahale", FirstLast},
    {"aroha.ngata@brisvale.test", "Aroha", "Ngata", LastFirst},
    {"mateo.quispe@brisvale.test", "Mateo", "Quispe Mamani", LastFirst},
    {"camille.tremblay@brisvale.test", "Camille", "Tremblay", LastFirst},
    {"harold.finch@brisvale.test", "Harold", "Finch", LastFirst},
    {"beatrice.langley@brisvale.test", "Beatrice", "Langley", FirstLast},
    {"declan.murphy@brisvale.test", "Declan", "Murphy", LastFirst},
    {"rhiannon.pryce@brisvale.test", "Rhiannon", "Pryce", LastFirst},
    {"alasdair.macleod@brisvale.test", "Alasdair", "MacLeod", LastFirst},
    {"victoria.stone@brisvale.test", "Victoria", "Stone", FirstLast},
    {"victor.stone@brisvale.test", "Victor", "Stone", LastFirst},
    {"benjamin.carter@brisvale.test", "Benjamin", "Carter", LastFirst},
    {"charlotte.reyes@brisvale.test", "Charlotte", "Reyes", LastFirst},
    {"daniel.kowalski@brisvale.test", "Daniel", "Kowalski", FirstLast},
    {"esther.goldberg@brisvale.test", "Esther", "Goldberg", LastFirst},
    {"frederik.norgaard@brisvale.test", "Frederik", "Nørgaard", LastFirst},
    {"grace.hopkins@brisvale.test", "Grace", "Hopkins", FirstLast},
    {"hannah.de.vries@brisvale.test", "Hannah", "de Vries", LastFirst},
    {"reception@brisvale.test", "Reception", "", FirstLast},
    {"it-support@brisvale.test", "IT Support", "", FirstLast},
    {"nadia.rahman@brisvale.test", "Nadia", "Rahman", LastFirst, Newcomer},
    {"lucas.moreau@brisvale.test", "Lucas", "Moreau", FirstLast, Newcomer},
    {"robin.ellis@lakeside-print.test", "Robin", "Ellis", FirstLast, Outside},
    {"contact@harbourlegal.test", "Harbour Legal", "", FirstLast, Outside},
};

Contact contactFor(const Person &person) {
  return {.email = person.address,
          .firstName = person.first,
          .lastName = person.last,
          .lastFirst = person.written == LastFirst,
          .employee = person.belongs != Outside,
          .listed = person.belongs == Listed};
}

Access accessFor(const Person &person, Rights rights, bool owner = false) {
  return {.email = person.address,
          .firstName = person.first,
          .lastName = person.last,
          .rights = rights,
          .owner = owner};
}

std::string addFolder(Database &database, const char *path) {
  auto id = unguessableToken();
  database.prepare("INSERT INTO items (path, id, folder) VALUES (?, ?, 1)")
      .bytes(path)
      .text(id)
      .run();
  return id;
}

constexpr Rights kReadOnly = {.download = true};
constexpr Rights kReadWrite = {.download = true, .upload = true, .remove = true};

}  // namespace

void addSampleAccount(Database &database) {
  database.prepare("INSERT INTO account (email, first, last, company) VALUES (?, ?, ?, ?)")
      .text(kHolder.address)
      .text(kHolder.first)
      .text(kHolder.last)
      .text("Brisvale Example Ltd")
      .run();

  Contacts contacts(database);
  for (const auto &person : kPeople) contacts.add(contactFor(person));

  addFolder(database, kHomeFolderName);
  Sharing sharing(database);
  const auto shared = addFolder(database, kSampleSharedFolder);
  sharing.grant(shared, accessFor(kHolder, kReadWrite, true));
  sharing.grant(shared, accessFor(kPeople[1], kReadWrite));
  sharing.grant(shared, accessFor(kPeople[5], kReadOnly));
  sharing.grant(shared, accessFor(kPeople[21], kReadOnly));
  sharing.grant(shared, {.type = "group",
                         .email = "aurora-steering@brisvale.test",
                         .firstName = "Aurora Steering Group",
                         .rights = kReadOnly});

  const auto foreign = addFolder(database, kSampleForeignFolder);
  sharing.grant(foreign, accessFor(kOwner, kReadWrite, true));
  sharing.grant(foreign, accessFor(kHolder, kReadOnly));
}

}  // namespace devkit
